#pragma once

#include "shell/docks/KMDockWidget.h"

#include <QPointer>

class KMContainerNode;
class KMDisplayNode;
class KMFieldPanel;
class KMPhysicsSheet;
class KMSetupList;
class KMTagBase;
class KMTextArea;
class KMTextField;
class QFormLayout;
class QListWidgetItem;
class QMenu;
class QMimeData;

/// What a model says about itself in exchange files: names and comments in two languages, and the groups in which the
/// player lists bones and morphs. The table of the physics opens from here.
class kmsetupwidget : public KMDockWidget
{
    Q_OBJECT
public:
    explicit kmsetupwidget(QWidget *parent = nullptr);
    ~kmsetupwidget() override;

    QAction *sheetAction() const { return m_sheetAction; } ///< opens the table of rigid bodies and joints

    bool edit(Edit edit) override; ///< of the group or item whose list has the focus, or of the table
    bool holds(const QWidget *widget) const override;
    void commit() override;
    void refresh() override;
    void refreshSheet(); ///< where it is open
    void resetDocument() override;
    void releaseDocument() override;

private:
    QWidget *createInformation();
    QWidget *createLists();
    void addTextRow(QFormLayout *form, const QString &language, int slot);
    void addCommentRow(QFormLayout *form, const QString &language, int slot);
    void openSheet();
    bool isInSheet(const QWidget *widget) const;
    void showTag(KMTagBase *tag);

    KMDisplayNode *group() const; ///< the chosen one; null for none
    void refillGroups();
    void refillItems();
    void chooseGroup();
    void renameGroup(QListWidgetItem *row);
    void createGroup();
    void deleteGroups();
    void moveGroups(const QList<int> &rows, int place);
    void createItems();
    void deleteItems();
    void moveItems(const QList<int> &rows, int place);
    void dropItems(const QMimeData *data, int place);
    void addItems(const QList<KMContainerNode *> &nodes, int place);
    void showMenu(KMSetupList *list, const QPoint &position);

    KMFieldPanel *m_information;
    struct Texts
    {
        KMTextField *name[2];
        KMTextArea *comment[2];
    } m_texts{};
    KMSetupList *m_groups;
    KMSetupList *m_items;
    QPointer<KMDisplayNode> m_group;
    QAction *m_sheetAction;
    QPointer<KMPhysicsSheet> m_sheet; // null until it is opened
};
