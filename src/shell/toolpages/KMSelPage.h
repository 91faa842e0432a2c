#pragma once

#include <QWidget>

class KMToolSel;
class QButtonGroup;

/// The modes of the selection tool.
class KMSelPage : public QWidget
{
    Q_OBJECT
public:
    explicit KMSelPage(KMToolSel *tool, QWidget *parent = nullptr);

private:
    QButtonGroup *m_modes;
};
