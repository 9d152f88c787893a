#include "HostWindow.h"
#include "Look.h"
#include "demo/Demonstration.h"
#include "demo/EveryAction.h"
#include "demo/PictureBook.h"

#include <QApplication>
#include <QCommandLineParser>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("host"));
    setDarkLook();

    QCommandLineParser arguments;
    arguments.setApplicationDescription(
        QStringLiteral("A small animation program that edits its curves with the curve editor."));
    arguments.addHelpOption();
    const QCommandLineOption demo(
        QStringLiteral("demo"),
        QStringLiteral("Plays the demonstration and leaves its pictures in the folder."),
        QStringLiteral("folder"));
    arguments.addOption(demo);
    const QCommandLineOption everyAction(
        QStringLiteral("every-action"),
        QStringLiteral("Triggers each action of the editor's menus and toolbars."));
    arguments.addOption(everyAction);
    const QCommandLineOption pictures(
        QStringLiteral("pictures"),
        QStringLiteral("Draws the pictures of the editor's manual into the folder."),
        QStringLiteral("folder"));
    arguments.addOption(pictures);
    arguments.addPositionalArgument(QStringLiteral("files"),
                                    QStringLiteral("Further curve files to open."),
                                    QStringLiteral("[files...]"));
    arguments.process(application);

    const bool playing = arguments.isSet(demo) || arguments.isSet(everyAction);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, playing);
    if (arguments.isSet(pictures)) {
        return PictureBook(arguments.value(pictures)).draw() ? 0 : 1;
    }
    HostWindow window;
    window.setMessageBoxes(!playing);
    const bool complete = window.openScene();
    window.openFiles(arguments.positionalArguments());
    if (!playing) {
        window.show();
        return QApplication::exec();
    }
    const bool asSaid = arguments.isSet(everyAction)
                            ? EveryAction(window).run()
                            : Demonstration(window, arguments.value(demo)).run();
    return asSaid && complete ? 0 : 1;
}
