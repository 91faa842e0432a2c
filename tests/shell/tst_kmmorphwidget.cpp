#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTagCommands.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMTagMorph.h"
#include "shell/docks/KMMorphTree.h"
#include "shell/docks/KMMorphValueCell.h"
#include "shell/docks/kmmorphwidget.h"
#include "shell/kmmainwidget.h"
#include "shell/widgets/KMMessageLabel.h"
#include "support/MeshFixtures.h"
#include "support/RecordingSession.h"
#include "support/TestRegistry.h"
#include "support/TestWindow.h"
#include "tools/KMMorphTargets.h"

#include <QAction>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QUndoStack>
#include <QWheelEvent>

#include <memory>

/// The panel of morphs in the real window. The document is a cube with a morph tag, and the same cube with its vertex 2
/// elsewhere.
class tst_kmmorphwidget : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup() { m_window.reset(); }
    void assign();
    void slider();
    void reorder();
    void dialogues();
    void copiedTag();
    void removeAndSelect();
    void otherBase();
    void tagThatIsShown();
    void refusals();

private:
    int steps() const { return gSolution->undoStack()->index(); }
    QString lastStep() const { return gSolution->undoStack()->undoText(); }
    KMMorph *assignAs(const char *name);
    QSlider *sliderOf(int row) const;
    QString names() const;

    std::unique_ptr<TestWindow> m_window;
    KMMeshNode *m_base = nullptr;
    KMMeshNode *m_target = nullptr;
    KMTagMorph *m_tag = nullptr;
    kmmorphwidget *m_dock = nullptr;
    KMMorphTree *m_rows = nullptr;
};

void tst_kmmorphwidget::init()
{
    m_window = std::make_unique<TestWindow>();
    m_base = MeshFixtures::cube();
    m_target = MeshFixtures::cube();
    m_target->setPosition(2, m_target->position(2) + kvm::Vector3(0.0f, 4.0f, 0.0f));
    gProject->addNode(m_base);
    gProject->addNode(m_target);
    m_tag = new KMTagMorph;
    gSolution->push(new addTagCommand(m_base, m_tag));
    gProject->tree()->setCurrentItem(m_base->item());
    m_dock = m_window->child<kmmorphwidget>("kmmorphwidget");
    m_dock->show();
    m_rows = m_window->child<KMMorphTree>("morphTree");
    gSolution->clearHistory();
}

KMMorph *tst_kmmorphwidget::assignAs(const char *name)
{
    m_window->prompt.acceptForms = true;
    m_window->prompt.optionValues[QStringLiteral("morph-name")] = QString::fromLatin1(name);
    m_target->setSelected(true);
    m_window->trigger("MorphComAssignMorph");
    return m_tag->findMorph(QString::fromLatin1(name));
}

QSlider *tst_kmmorphwidget::sliderOf(int row) const
{
    return m_rows->itemWidget(m_rows->topLevelItem(row), KMMorphTree::ValueColumn)->findChild<QSlider *>();
}

QString tst_kmmorphwidget::names() const
{
    QString names;
    for (int i = 0; i < m_rows->topLevelItemCount(); ++i)
        names += m_rows->topLevelItem(i)->text(KMMorphTree::NameColumn);
    return names;
}

void tst_kmmorphwidget::assign()
{
    const KMMorph *smile = assignAs("smile");
    QVERIFY(smile);
    QCOMPARE(smile->deltas(), (MorphDeltas{{2, 4.0f, {0, 1, 0}}}));
    QCOMPARE(lastStep(), QStringLiteral("Assign MorphNode"));
    QVERIFY(!m_target->isVisible());
    QCOMPARE(names(), QStringLiteral("smile"));

    m_target->setPosition(2, m_base->position(2) + kvm::Vector3(0.0f, 0.0f, 1.0f));
    assignAs("smile"); // the question is answered by Escape
    QCOMPARE(steps(), 1);
    QVERIFY(m_window->prompt.messages.last().text.startsWith(QStringLiteral("\"smile\"\nalready exists.")));
    m_window->prompt.buttons = {QMessageBox::Yes};
    assignAs("smile");
    QCOMPARE(smile->deltas().first().direction, kvm::Vector3(0, 0, 1));
    gSolution->undoStack()->setIndex(0);
    QCOMPARE(names(), QString());
    QVERIFY(m_target->isVisible());
}

/// A drag shows what it does as it goes, and is one step.
void tst_kmmorphwidget::slider()
{
    const KMMorph *smile = assignAs("smile");
    const float height = m_base->position(2).y;
    QSlider *slider = sliderOf(0);
    QVERIFY(QTest::qWaitForWindowExposed(m_dock->window()));
    const QPoint start(8, slider->height() / 2);
    QTest::mousePress(slider, Qt::LeftButton, Qt::NoModifier, start);
    slider->setSliderDown(true); // whichever way the style takes a press beside the handle
    slider->setSliderPosition(250);
    slider->setSliderPosition(500);
    QCOMPARE(smile->value(), 0.5f);
    QCOMPARE(m_base->position(2).y, height + 2.0f);
    QCOMPARE(m_base->dirtyMask(), 0u);
    QCOMPARE(steps(), 1);
    QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, start);
    QCOMPARE(steps(), 2);
    const float value = smile->value();
    gSolution->undoStack()->undo();
    QCOMPARE(smile->value(), 0.0f);
    QCOMPARE(m_base->position(2).y, height);
    QCOMPARE(slider->value(), 0);
    gSolution->undoStack()->redo();
    QCOMPARE(smile->value(), value);

    slider->clearFocus();
    const QPointF middle(slider->rect().center());
    QWheelEvent wheel(middle, slider->mapToGlobal(middle.toPoint()), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(slider, &wheel);
    QCOMPARE(steps(), 2); // the list is scrolled over

    slider->setSliderDown(true);
    slider->setSliderPosition(900);
    QTest::keyClick(slider, Qt::Key_Escape);
    QCOMPARE(smile->value(), value);
    QCOMPARE(steps(), 2);

    sliderOf(0)->setSliderDown(true);
    sliderOf(0)->setSliderPosition(700);
    assignAs("blink"); // a step in the middle of a drag, which makes the rows anew
    QCOMPARE(smile->value(), value);
    QCOMPARE(sliderOf(0)->value(), int(value * 1000.0f + 0.5f));
}

void tst_kmmorphwidget::reorder()
{
    for (const char *name : {"a", "b", "c"})
        assignAs(name);
    QCOMPARE(names(), QStringLiteral("abc"));
    const std::unique_ptr<QMimeData> data(
        KMTreeWidget::mimeDataOf({m_tag->findMorph(QStringLiteral("c"))}, KMMorphTargets::MorphMimeType));
    const QPoint top = m_rows->visualItemRect(m_rows->topLevelItem(0)).topLeft() + QPoint(5, 1);
    const Qt::DropActions actions = Qt::MoveAction | Qt::CopyAction;
    QDragEnterEvent enter(top, actions, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_rows->viewport(), &enter);
    QDragMoveEvent move(top, actions, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_rows->viewport(), &move);
    QDropEvent drop(top, actions, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_rows->viewport(), &drop);
    QCOMPARE(names(), QStringLiteral("cab"));
    QCOMPARE(lastStep(), QStringLiteral("Reorder MorphNode"));
    gSolution->undoStack()->undo();
    QCOMPARE(names(), QStringLiteral("abc"));
    m_rows->topLevelItem(1)->setText(KMMorphTree::NameColumn, QStringLiteral("x"));
    m_rows->topLevelItem(1)->setData(KMMorphTree::PanelColumn, Qt::EditRole, int(KMMorph::LeftTop));
    QCOMPARE(m_tag->liveMorphs()[1]->name(), QStringLiteral("x"));
    QCOMPARE(m_tag->liveMorphs()[1]->panel(), int(KMMorph::LeftTop));
    gSolution->undoStack()->undo();
    gSolution->undoStack()->undo();
    QCOMPARE(names(), QStringLiteral("abc"));
}

void tst_kmmorphwidget::dialogues()
{
    for (const char *name : {"a", "b", "c", "d"})
        assignAs(name);
    for (const int row : {2, 3})
        m_rows->topLevelItem(row)->setSelected(true);
    m_window->prompt.onDialog = [](QDialog &dialog) {
        auto *rows = dialog.findChild<QTreeWidget *>(QStringLiteral("morphRows"));
        rows->topLevelItem(1)->setData(0, Qt::EditRole, int(KMMorph::RightTop));
        rows->topLevelItem(1)->setText(1, QStringLiteral("x"));
        return true;
    };
    const int before = steps();
    m_window->trigger("MorphComEditAttr");
    QCOMPARE(names(), QStringLiteral("abcx"));
    QCOMPARE(m_tag->liveMorphs()[3]->panel(), int(KMMorph::RightTop));
    QCOMPARE(steps(), before + 1);
    m_window->prompt.onDialog = [](QDialog &dialog) {
        auto *list = dialog.findChild<QListWidget *>(QStringLiteral("morphOrderList"));
        list->item(0)->setSelected(true);
        list->item(2)->setSelected(true);
        dialog.findChild<QSpinBox *>(QStringLiteral("morphPlace"))->setValue(4); // as far as there are others
        dialog.findChild<QPushButton *>(QStringLiteral("selectedAs"))->click();
        dialog.findChild<QPushButton *>(QStringLiteral("done"))->click();
        return dialog.result() == QDialog::Accepted;
    };
    emit m_rows->customContextMenuRequested(QPoint(3, 3));
    auto *entry = m_dock->findChild<QAction *>(QStringLiteral("reorderMorphs"));
    QVERIFY(entry);
    entry->trigger();
    delete entry->parent();
    QCOMPARE(names(), QStringLiteral("bxac"));
    m_window->prompt.onDialog = nullptr;
}

/// By the Edit menu, from one mesh to another. Morphs that go take their blocks along.
void tst_kmmorphwidget::copiedTag()
{
    KMMorph *smile = assignAs("smile");
    CallLog log;
    RecordingBlocks blocks(&log);
    blocks.nodesWithBlock = {smile};
    gProject->setBlockModel(&blocks);
    const auto cutTag = [&] {
        QVERIFY(m_window->focus(gProject->tree()));
        m_tag->setSelected(true);
        gSolution->setCurrentTag(m_tag);
        m_window->trigger("actionCut");
    };
    cutTag();
    gProject->setBlockModel(nullptr);
    QCOMPARE(lastStep(), QStringLiteral("Delete Tag"));
    QVERIFY(blocks.nodesWithBlock.isEmpty());
    gProject->tree()->setCurrentItem(m_target->item());
    m_window->trigger("actionPaste");
    const auto *copy = static_cast<KMTagMorph *>(m_target->findTag(KMNodeType::TagMorph));
    QVERIFY(copy);
    QCOMPARE(copy->findMorph(QStringLiteral("smile"))->deltas(), smile->deltas());
    gSolution->clearHistory();
}

void tst_kmmorphwidget::removeAndSelect()
{
    assignAs("a");
    assignAs("b");
    const int before = steps();
    m_window->trigger("MorphComSelectVertex"); // no row is selected
    QCOMPARE(steps(), before);
    m_rows->topLevelItem(1)->setSelected(true);
    m_base->setLocked(true);
    m_window->trigger("MorphComSelectVertex");
    m_window->trigger("MorphComRemoveMorph");
    m_base->setLocked(false);
    QCOMPARE(steps(), before);
    m_window->trigger("MorphComSelectVertex");
    QVERIFY(m_base->vertex(2)->hasFlag(KMElementFlag::Selected));
    m_window->trigger("MorphComRemoveMorph");
    QCOMPARE(names(), QStringLiteral("a"));
    gSolution->undoStack()->setIndex(before);
    QCOMPARE(names(), QStringLiteral("ab"));
    gSolution->undoStack()->setIndex(0);
}

/// The base has a loose vertex in front, so its vertices have other numbers than those of the tag's mesh.
void tst_kmmorphwidget::otherBase()
{
    auto *base = new KMMeshNode;
    base->addVertexRaw({9.0f, 9.0f, 9.0f});
    for (int v = 0; v < m_base->vertexCount(); ++v)
        base->addVertexRaw(m_base->position(v));
    for (int f = 0; f < m_base->faceCount(); ++f) {
        int corners[4];
        for (int c = 0; c < m_base->face(f)->count; ++c)
            corners[c] = m_base->face(f)->indices[c] + 1;
        base->addFaceRaw(m_base->face(f)->count, corners);
    }
    base->refreshMesh(KMMeshDirty::All);
    gProject->addNode(base);
    base->setSelected(true);
    gProject->tree()->setCurrentItem(m_base->item());
    base->setSelected(true);
    m_window->prompt.optionValues[QStringLiteral("base-mesh")] = 1;
    const KMMorph *smile = assignAs("smile");
    QVERIFY(smile);
    QCOMPARE(smile->deltas(), (MorphDeltas{{2, 4.0f, {0, 1, 0}}}));
}

/// Edits of the rows mean the tag whose rows they are, and the panel follows whichever panel chooses another one.
void tst_kmmorphwidget::tagThatIsShown()
{
    for (const char *name : {"a", "b"})
        assignAs(name);
    const QList<KMMorph *> own = m_tag->liveMorphs();
    auto *other = new KMTagMorph;
    gSolution->push(new addTagCommand(m_target, other));
    auto *foreign = new KMMorph;
    foreign->setName(QStringLiteral("x"));
    other->addMorph(foreign);
    gProject->tree()->setCurrentItem(m_base->item());
    QCOMPARE(names(), QStringLiteral("ab"));
    gSolution->setCurrentTag(other); // unseen
    emit m_rows->morphsDropped({own[1]}, 0);
    QCOMPARE(m_tag->liveMorphs(), (QList<KMMorph *>{own[1], own[0]}));
    QCOMPARE(other->liveMorphs(), QList<KMMorph *>{foreign});
    m_tag->setOrder({foreign, own[0], own[1]});
    QCOMPARE(m_tag->morphs(), own);
    for (const char *dock : {"kmbonewidget", "kmsetupwidget", "kmnodewidget"}) {
        gSolution->setCurrentTag(m_tag);
        m_dock->refresh();
        gSolution->setCurrentTag(other);
        emit m_window->child<KMDockWidget>(dock)->onNodeChanged(other, other->type());
        QCOMPARE(names(), QStringLiteral("x"));
    }
}

void tst_kmmorphwidget::refusals()
{
    const auto *line = m_window->child<KMMessageLabel>("messageLabel");
    m_target->setSelected(false);
    m_window->trigger("MorphComAssignMorph");
    QCOMPARE(line->message(), QStringLiteral("Not found a candidate meshs."));
    m_window->trigger("MorphComRemoveMorph");
    QCOMPARE(line->message(), QStringLiteral("MorphNode Not Selected."));
    m_window->prompt.optionValues[QStringLiteral("only-selected")] = true;
    m_target->setVertexFlag(3, KMElementFlag::Selected);
    QVERIFY(assignAs("none")->deltas().isEmpty());
    m_window->prompt.optionValues.remove(QStringLiteral("only-selected")); // it stays as it was
    m_target->setVertexFlag(2, KMElementFlag::Selected);
    QCOMPARE(assignAs("one")->deltas().size(), 1);
    assignAs("");
    QVERIFY(m_tag->findMorph(QStringLiteral("Morph")));
    m_window->prompt.messages.clear();
    assignAs("");
    QCOMPARE(m_window->prompt.messages.size(), 1); // the name that it would get is taken
    QCOMPARE(m_tag->liveMorphs().size(), 3);
    gSolution->push(new deleteTagCommand(m_base, m_tag));
    m_window->trigger("MorphComAssignMorph");
    QCOMPARE(line->message(), QStringLiteral("MorphTag Not Selected."));
}

KM_TEST(tst_kmmorphwidget);

#include "tst_kmmorphwidget.moc"
