#pragma once

#include "shell/toolpages/KMPreviewPage.h"

class KMToolExtrude;
class QButtonGroup;
class QCheckBox;

/// The controls of the extrude tool: its modes, whether each face goes alone, and how far.
class KMExtrudePage : public KMPreviewPage
{
    Q_OBJECT
public:
    explicit KMExtrudePage(KMToolExtrude *tool, QWidget *parent = nullptr);

private slots:
    void showMode(); ///< as the tool has it

private:
    void addModes();

    KMToolExtrude *m_tool;
    QButtonGroup *m_modes;
    QCheckBox *m_perFaces;
};
