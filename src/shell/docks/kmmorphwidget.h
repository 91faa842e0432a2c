#pragma once

#include "shell/docks/KMDockWidget.h"

#include <QList>

class KMCommandContainer;
class KMMorph;
class KMMorphTree;
class QLabel;

/// The panel of morphs: those of the chosen morph tag, with their values.
class kmmorphwidget : public KMDockWidget
{
    Q_OBJECT
public:
    explicit kmmorphwidget(QWidget *parent = nullptr);

    void setCommands(const KMCommandContainer *commands) { m_commands = commands; } ///< not owned; outlives the dock

    bool edit(Edit edit) override;
    void commit() override;
    void refresh() override;
    void resetDocument() override;

private:
    void showMenu(const QPoint &position);
    void askOrder();
    void moveRows(const QList<KMMorph *> &morphs, int place);
    void pushOrder(const QList<KMMorph *> &order);

    const KMCommandContainer *m_commands = nullptr;
    QLabel *m_mesh; // whose morphs these are
    KMMorphTree *m_tree;
};
