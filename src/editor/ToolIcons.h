#pragma once

#include <QIcon>
#include <QString>

namespace curve_editor {

/// The pictures of the tools, by number of the toolbar button.
struct ToolIcons
{
    QString folder;
    int size = 25; ///< side of an icon on the toolbars, in pixels

    /// "curveeditor", the number in three digits, `suffix` and ".png" in the folder.
    QString file(int number, const QString& suffix = QString()) const;
    /// A missing picture gives an empty icon.
    QIcon icon(int number) const;
};

} // namespace curve_editor
