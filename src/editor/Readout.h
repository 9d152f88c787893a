#pragma once

class CustomEditLine;
class QLabel;
class QToolBar;
class ViewPort;

namespace curve_editor {

/// What stands on the menu bar's right: the position of the selected keys and that of the pointer.
class Readout
{
public:
    /// Makes fields and labels on the bar, which owns them.
    void build(QToolBar* bar);

    /// Twins of the fields in the key dialog. Null before they are built.
    CustomEditLine* positionX() const;
    CustomEditLine* positionY() const;
    /// Shows a time that a field of the key dialog shows already.
    void showTimeOf(const CustomEditLine* field);

    /// Time in seconds and value under the pointer, and the value of the first curve there.
    void showPointer(double time, double value, double curveValue, const ViewPort& view,
                     int decimals);

private:
    CustomEditLine* posX = nullptr; ///< these are children of the bar
    CustomEditLine* posY = nullptr;
    QLabel* frameLabel = nullptr;
    QLabel* timecodeLabel = nullptr;
    QLabel* valueLabel = nullptr;
    QLabel* functionLabel = nullptr;
};

} // namespace curve_editor
