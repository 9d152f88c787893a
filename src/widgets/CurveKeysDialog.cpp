// Construction, and the fields by their names.

#include "widgets/CurveKeysDialog.h"

#include "commands/CommandChangePoints.h"
#include "commands/CommandMovePoints.h"
#include "widgets/KeysDialogHost.h"

#include <QFocusEvent>

using namespace curve_editor;

CurveKeysDialog::CurveKeysDialog(std::unique_ptr<KeysDialogHost> asked, QWidget* parent)
    : QDialog(parent, Qt::Tool)
    , host(std::move(asked))
{
    setupUi(this);
    setWindowTitle(tr("Selected Keys Properties"));
    node->setEnabled(false);
    nodeTypeCombo->setCurrentIndex(0);
    enableKeyFields(false);
    connectFields();
}

CurveKeysDialog::~CurveKeysDialog() = default;

void CurveKeysDialog::focusInEvent(QFocusEvent* event)
{
    QDialog::focusInEvent(event);
}

/// By signature, as hosts and tables name signals and slots.
void CurveKeysDialog::connectFields()
{
    connect(prevNode, SIGNAL(clicked()), this, SLOT(clickedPrev()));
    connect(nextNode, SIGNAL(clicked()), this, SLOT(clickedNext()));
    connect(nodeTypeCombo, SIGNAL(activated(int)), this, SLOT(changeNodeType(int)));
    for (int field = 0; field < keyFieldsCount; ++field) {
        const bool isPosition = field == timeField || field == valueField;
        for (CustomEditLine* const line : linesOf(static_cast<keyFields>(field))) {
            if (isPosition) {
                connectLine(line, SLOT(startMovePoints()), SLOT(endMovePoints()));
            } else {
                connectLine(line, SLOT(startChangePoints()), SLOT(endChangePoints()));
            }
        }
    }
}

void CurveKeysDialog::connectLine(CustomEditLine* line, const char* start, const char* end)
{
    line->installEventFilter(this);
    connect(line, SIGNAL(mousePressEditLine()), this, start);
    connect(line, SIGNAL(mouseReleaseEditLine()), this, end);
    connect(line, SIGNAL(newValueTyped(ZK_DOUBLE, CustomEditLine*)), this,
            SLOT(valueChangedTyped(ZK_DOUBLE, CustomEditLine*)));
    connect(line, SIGNAL(newValueSet(ZK_DOUBLE, CustomEditLine*)), this,
            SLOT(valueChanged(ZK_DOUBLE, CustomEditLine*)));
}

QList<CustomEditLine*> CurveKeysDialog::linesOf(keyFields field) const
{
    switch (field) {
    case timeField:
        return {posX, host->positionX()};
    case valueField:
        return {posY, host->positionY()};
    case tensionField:
        return {tension};
    case continuityField:
        return {continuity};
    case biasField:
        return {bias};
    case incomingField:
        return {incoming};
    case outgoingField:
        return {outgoing};
    case easeFromField:
        return {easeFrom};
    case easeToField:
        return {easeTo};
    default:
        return {};
    }
}

keyFields CurveKeysDialog::fieldOf(CustomEditLine* line) const
{
    for (int field = 0; field < keyFieldsCount; ++field) {
        const auto which = static_cast<keyFields>(field);
        if (linesOf(which).contains(line)) {
            return which;
        }
    }
    return noField;
}
