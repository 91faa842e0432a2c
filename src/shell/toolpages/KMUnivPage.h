#pragma once

#include <QHash>
#include <QWidget>

class KMToolUniv;
class QAbstractButton;
class QButtonGroup;
class QLabel;

/// The options of a tool with a transform handle: which parts the handle has, how it stands, and the value of a drag.
class KMUnivPage : public QWidget
{
    Q_OBJECT
public:
    explicit KMUnivPage(KMToolUniv *tool, QWidget *parent = nullptr);

private slots:
    void sync(); ///< the buttons show what the tool has
    void onUnivOptionChanged(int option);
    void onUnivOptionChangedByRightClick(int option); ///< this kind of part alone, or all kinds again

private:
    QAbstractButton *addButton(int option);

    KMToolUniv *m_tool;
    QHash<int, QAbstractButton *> m_buttons; // by option
    QButtonGroup *m_stance;
    QLabel *m_value;
};
