#include "widgets/CommandLine.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalBlocker>

#include <utility>

namespace {

constexpr int longestExpression = 16384;
constexpr QColor errorColor(255, 55, 33);

/// Where the first `bytes` bytes of a text in the local encoding end, in characters of a QString.
int charactersIn(const QByteArray& text, int bytes)
{
    return static_cast<int>(QString::fromLocal8Bit(text.left(bytes)).size());
}

} // namespace

CommandLine::CommandLine(QWidget* parent)
    : QLineEdit(parent)
    , savedPalette(palette())
{
    setAlignment(Qt::AlignRight);
    setMaxLength(longestExpression);
    setFocusPolicy(Qt::StrongFocus);
    setSizeIncrement(1, 1);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMouseTracking(true);
    setAcceptDrops(true);
}

void CommandLine::setParseMessage(const ParseMessage& result)
{
    message = result;
    setText(QString::fromLocal8Bit(QByteArray::fromStdString(message.expressionText)));
    if (!message.errorSpans.empty()) {
        markFirstError();
    }
}

const ParseMessage& CommandLine::parseMessage() const
{
    return message;
}

bool CommandLine::isErrorShown() const
{
    return errorShown;
}

void CommandLine::insertAtCursor(const QString& piece)
{
    const QString before = text().left(cursorPosition());
    const QString behind = text().mid(cursorPosition());
    setText(before + piece + behind);
    setCursorPosition(static_cast<int>(before.size() + piece.size()));
    setModified(true);
}

void CommandLine::insertUnderscore()
{
    insertAtCursor(QStringLiteral("_"));
    setFocus();
}

bool CommandLine::isBeingLeft() const
{
    return leaving;
}

void CommandLine::mousePressEvent(QMouseEvent* event)
{
    hideError();
    QLineEdit::mousePressEvent(event);
}

void CommandLine::mouseReleaseEvent(QMouseEvent* event)
{
    hideError();
    QLineEdit::mouseReleaseEvent(event);
}

void CommandLine::keyPressEvent(QKeyEvent* event)
{
    hideError();
    QLineEdit::keyPressEvent(event);
}

void CommandLine::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasText()) {
        event->acceptProposedAction();
    }
}

void CommandLine::dropEvent(QDropEvent* event)
{
    if (event->mimeData()->hasText()) {
        insertAtCursor(event->mimeData()->text().replace(QLatin1Char(' '), QLatin1Char('_')));
    }
    setFocus();
    event->acceptProposedAction();
}

/// The press of a modifier goes on to the parent, and so must its release.
void CommandLine::keyReleaseEvent(QKeyEvent* event)
{
    QLineEdit::keyReleaseEvent(event);
    event->ignore();
}

/// The base class would go on after its signal editingFinished, whose receiver may show a box, in
/// which the host may delete this line. So it works silently, and the signal comes last.
void CommandLine::focusOutEvent(QFocusEvent* event)
{
    const QWidget* const popup = QApplication::activePopupWidget();
    const bool isForOwnMenu =
        event->reason() == Qt::PopupFocusReason && popup && popup->parentWidget() == this;
    {
        const QSignalBlocker silence(this);
        QLineEdit::focusOutEvent(event);
    }
    if (isForOwnMenu) {
        return;
    }
    const QPointer<CommandLine> self(this);
    const bool wasLeaving = std::exchange(leaving, true);
    emit editingFinished();
    if (self) {
        leaving = wasLeaving;
    }
}

void CommandLine::hideError()
{
    if (errorShown) {
        setPalette(savedPalette);
        errorShown = false;
    }
}

void CommandLine::markFirstError()
{
    QPalette errorPalette = savedPalette;
    errorPalette.setColor(QPalette::HighlightedText, errorColor);
    errorPalette.setColor(QPalette::Highlight, palette().color(QPalette::Window));
    setPalette(errorPalette);

    // The spans count bytes, and the line may have cut the text short.
    const auto [start, length] = message.errorSpans.front();
    const QByteArray bytes = QByteArray::fromStdString(message.expressionText);
    const int first = charactersIn(bytes, start);
    const int end = charactersIn(bytes, start + length);
    if (first <= text().size()) {
        setSelection(first, end - first);
    }
    errorShown = true;
}
