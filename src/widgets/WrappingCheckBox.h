#pragma once

#include "zk_curve_editor_export.h"

#include <QCheckBox>

namespace curve_editor {

/// A check box that writes its text in two lines where its maximum width has no room for one.
/// `text()` stays in one piece.
class ZK_CURVE_EDITOR_EXPORT WrappingCheckBox : public QCheckBox
{
public:
    using QCheckBox::QCheckBox;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void initStyleOption(QStyleOptionButton* option) const override;

private:
    QSize sizeWith(const QString& label) const;
    QString wrapped(const QString& label) const;
};

} // namespace curve_editor
