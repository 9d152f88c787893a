#include "Demonstration.h"
#include "HostWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QPalette>
#include <QStyleFactory>

namespace {

/// A quiet dark look, in which the stage and the curves are what shines.
void setLook()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) {
        QApplication::setFont(QFont(QStringLiteral("Liberation Sans"), 10));
    }
    QPalette palette(QColor(0x3a3f4b), QColor(0x2b2f38));
    palette.setColor(QPalette::Base, QColor(0x20232a));
    palette.setColor(QPalette::AlternateBase, QColor(0x262a32));
    palette.setColor(QPalette::Highlight, QColor(0x3d7eb8));
    palette.setColor(QPalette::ToolTipBase, QColor(0x20232a));
    palette.setColor(QPalette::ToolTipText, QColor(0xe6e6e6));
    QApplication::setPalette(palette);
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("host"));
    setLook();

    QCommandLineParser arguments;
    arguments.setApplicationDescription(
        QStringLiteral("A small animation program that edits its curves with the curve editor."));
    arguments.addHelpOption();
    const QCommandLineOption demo(
        QStringLiteral("demo"),
        QStringLiteral("Plays the demonstration and leaves its pictures in the folder."),
        QStringLiteral("folder"));
    arguments.addOption(demo);
    arguments.addPositionalArgument(QStringLiteral("files"),
                                    QStringLiteral("Further curve files to open."),
                                    QStringLiteral("[files...]"));
    arguments.process(application);

    HostWindow window;
    window.setMessageBoxes(!arguments.isSet(demo));
    const bool complete = window.openScene();
    window.openFiles(arguments.positionalArguments());
    if (!arguments.isSet(demo)) {
        window.show();
        return QApplication::exec();
    }
    return Demonstration(window, arguments.value(demo)).run() && complete ? 0 : 1;
}
