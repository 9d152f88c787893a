#pragma once

#include "support/FailOnWarning.h"
#include "support/Patience.h"
#include "widgets/EditingTree.h"

#include <QContextMenuEvent>
#include <QDialog>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

/// Adds an item for a list of texts from the root on, with whatever is missing on the way.
inline QTreeWidgetItem* addPath(QTreeWidget& tree, const QStringList& texts)
{
    QTreeWidgetItem* item = tree.invisibleRootItem();
    for (const QString& text : texts) {
        QTreeWidgetItem* next = nullptr;
        for (int row = 0; row < item->childCount() && !next; ++row) {
            next = item->child(row)->text(0) == text ? item->child(row) : nullptr;
        }
        item = next ? next : new QTreeWidgetItem(item, QStringList(text));
    }
    return item;
}

inline QTreeWidgetItem* addPath(QTreeWidget& tree, const QString& path)
{
    return addPath(tree, path.split(QLatin1Char('.')));
}

/// A dialog that counts the keys and context menu requests that climb to it.
class EditingTreeFrame : public QDialog
{
public:
    EditingTreeFrame()
    {
        auto* const layout = new QVBoxLayout(this);
        layout->addWidget(&tree);
        tree.setSelectionMode(QAbstractItemView::ExtendedSelection);
        resize(300, 300);
        show();
        activateWindow();
        tree.setFocus();
    }

    EditingTree tree{nullptr};
    int keys = 0;
    int menus = 0;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        ++keys;
        event->accept();
    }
    void contextMenuEvent(QContextMenuEvent* event) override
    {
        ++menus;
        event->accept();
    }
};

/// A shown tree that has the focus, in a frame of its own.
class EditingTreeFixture
{
protected:
    void open()
    {
        frame = std::make_unique<EditingTreeFrame>();
        tree = &frame->tree;
        QVERIFY(QTest::qWaitForWindowActive(frame.get(), patience));
    }

    void close() { frame.reset(); }

    std::unique_ptr<EditingTreeFrame> frame;
    EditingTree* tree = nullptr; ///< in the frame
};
