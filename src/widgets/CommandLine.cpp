#include "widgets/CommandLine.h"

namespace {

constexpr int longestExpression = 16384;

} // namespace

CommandLine::CommandLine(QWidget* parent)
    : QLineEdit(parent)
{
    setAlignment(Qt::AlignRight);
    setMaxLength(longestExpression);
    setFocusPolicy(Qt::StrongFocus);
    setSizeIncrement(1, 1);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMouseTracking(true);
    setAcceptDrops(true);
    setReadOnly(true);
}
