#pragma once

#include "shell/widgets/KMFieldPanel.h"

#include <QList>

class KMBone;
class KMNumberField;
class KMToolBoneWeight;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QListWidget;

/// The controls of the bone-weight tool: its modes, its brush, and the bone that is painted.
class KMBoneWeightPage : public KMFieldPanel
{
    Q_OBJECT
public:
    explicit KMBoneWeightPage(KMToolBoneWeight *tool, QWidget *parent = nullptr);

private slots:
    void showBrush(); ///< as the tool has it
    void showBones();
    void chooseBone(int row);

private:
    void addModes();
    void addNumbers();
    void addSwitches();
    void addBones();

    KMToolBoneWeight *m_tool;
    QFormLayout *m_form;
    QButtonGroup *m_modes;
    QList<KMNumberField *> m_numbers; // in the order of the table
    QComboBox *m_falloff;
    QList<QCheckBox *> m_switches; // likewise
    QListWidget *m_list;
    QList<KMBone *> m_bones; // of the rows of the list; compared, and used only while they are still the tool's
};
