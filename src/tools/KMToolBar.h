#pragma once

#include "tools/KMPanelBar.h"

#include <QList>

class KMNode;
class KMTool;
class QAbstractButton;
class QButtonGroup;

/// The bar of all tools. It takes the one that was chosen into the user's hand.
class KMToolBar : public KMPanelBar
{
    Q_OBJECT
public:
    explicit KMToolBar(QWidget *parent = nullptr);

    void createTools();         ///< all of the table
    void addTool(KMTool *tool); ///< takes it over
    void initialize();          ///< all tools, when the views exist; takes the first one into the hand
    void finalize();            ///< all tools; none is in the hand any more
    const QList<KMTool *> &tools() const { return m_tools; }
    KMTool *tool(int id) const; ///< null for an unknown id
    KMTool *current() const;    ///< null when none is in the hand
    void cancelDrag();          ///< ends what the tool in the hand is in the middle of, without an effect

signals:
    void toolAdded(KMTool *tool);
    void commandChanged(KMTool *tool); ///< another one is in the hand, or the same was chosen again
    void editingChanged(bool editing); ///< a drag has begun or ended
    void onSpeech(const QString &text);

protected:
    void addEntries(QMenu *menu) override;

private slots:
    void onCommandChanged(QAbstractButton *button);
    void onEnterEditing(bool editing);
    void onCurrentNodeChanged(KMNode *node);

private:
    QButtonGroup *m_group;
    QList<KMTool *> m_tools;
};
