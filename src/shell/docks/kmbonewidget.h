#pragma once

#include "shell/docks/KMTreeDock.h"

class KMBone;
class KMBoneComContainer;
class KMBoneContainer;
class QComboBox;

/// The bones of one rig: that of the current node or of the current bone, else the one that was shown before. Rows and
/// views select the same bones; what the user selects here is a step of the history.
class kmbonewidget : public KMTreeDock
{
    Q_OBJECT
public:
    explicit kmbonewidget(QWidget *parent = nullptr);

    KMBoneContainer *rig() const { return m_rig; }                                      ///< null while there is none
    void setBoneCommands(const KMBoneComContainer *commands) { m_commands = commands; } ///< of the rows; not owned

    void refresh() override;
    void resetDocument() override;
    bool editRows(Edit edit) override; ///< what it means for the selected bones, wherever the focus is

protected:
    void connectTree() override;
    void addEntries(QMenu *menu, const QTreeWidgetItem *row) override;
    void dropNodes(const QList<KMContainerNode *> &nodes, KMContainerNode *target, KMTreeWidget::Place place,
                   bool asCopy) override;

private:
    KMBoneContainer *rigToShow() const;
    void listRigs();
    void chooseRig(int entry);
    void selectionChanged();
    void showCurrentBone();
    void run(const char *command);
    void addMoveMenu(QMenu *menu);
    void moveToRig(KMBoneContainer *other);
    bool isRefused(const KMBoneContainer *rig) const; // says so when it is locked

    QComboBox *m_rigs;
    KMBoneContainer *m_rig = nullptr; // shown; not owned
    const KMBoneComContainer *m_commands = nullptr;
};
