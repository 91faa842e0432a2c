#pragma once

#include <QVector>
#include <QWidget>

class KMToolBone;
class QButtonGroup;
class QCheckBox;

/// The options of the bone tool: what a drag does, and how. They are kept from one run of the program to the next.
class KMBoneToolPage : public QWidget
{
    Q_OBJECT
public:
    explicit KMBoneToolPage(KMToolBone *tool, QWidget *parent = nullptr);

private:
    void addModes();
    void addOptions();
    void sync(); ///< the buttons show what the tool has
    void onBoneOptionChanged(int row);
    void restore();
    void store() const;

    KMToolBone *m_tool;
    QButtonGroup *m_modes;
    QVector<QCheckBox *> m_boxes; // by row
};
