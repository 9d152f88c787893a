#include "editor/ToolIcons.h"

namespace curve_editor {

QString ToolIcons::file(int number, const QString& suffix) const
{
    const QString digits = QString::number(number).rightJustified(3, QLatin1Char('0'));
    return QString("%1/curveeditor%2%3.png").arg(folder, digits, suffix);
}

QIcon ToolIcons::icon(int number) const
{
    QIcon icon;
    icon.addFile(file(number));
    icon.addFile(file(number, "-d"), QSize(), QIcon::Disabled, QIcon::Off);
    return icon;
}

} // namespace curve_editor
