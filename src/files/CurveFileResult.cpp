#include "files/CurveFileResult.h"

#include <QCoreApplication>

namespace curve_files {

QString CurveFileResult::text() const
{
    if (line == 0) {
        return message;
    }
    return QCoreApplication::translate("CurveXmlReader", "%1\nat line:%2, column:%3")
        .arg(message, QString::number(line), QString::number(column));
}

} // namespace curve_files
