#include "StepLog.h"

#include "ScreenPicture.h"

#include <QApplication>

#include <QTextStream>

StepLog::StepLog(QWidget& pictured, const QDir& picturesFolder)
    : window(pictured)
    , target(picturesFolder)
{}

bool StepLog::finish(const QString& step, const QString& text, bool asSaid)
{
    QTextStream(stdout) << step << ": " << text << Qt::endl;
    picture(step);
    const bool passed = asSaid && allWritten;
    if (!passed) {
        QTextStream(stderr) << "FAILED: " << step << Qt::endl;
    }
    return passed;
}

void StepLog::picture(const QString& what)
{
    QApplication::processEvents();
    const QString name = QStringLiteral("%1-%2.png")
                             .arg(++pictures, 2, 10, QLatin1Char('0'))
                             .arg(QString(what).replace(QLatin1Char(' '), QLatin1Char('-')));
    if (!screenPicture(window).save(target.filePath(name))) {
        QTextStream(stderr) << "No picture could be written: " << target.filePath(name) << Qt::endl;
        allWritten = false;
    }
}

const QDir& StepLog::folder() const
{
    return target;
}
