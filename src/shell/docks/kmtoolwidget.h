#pragma once

#include "shell/docks/KMDockWidget.h"

#include <QPointer>

class KMTool;
class QLabel;
class QStackedWidget;
class QToolButton;

/// The options of the tool in the user's hand: a page for each tool, under its icon and name.
class kmtoolwidget : public KMDockWidget
{
    Q_OBJECT
public:
    explicit kmtoolwidget(QWidget *parent = nullptr);

    /// Takes the page over; null for a tool without options, which gets a line of text instead.
    void addPage(KMTool *tool, QWidget *page);
    void showTool(KMTool *tool); ///< of a page that was added

private:
    void resetOptions();

    QLabel *m_icon;
    QLabel *m_title;
    QToolButton *m_reset;
    QStackedWidget *m_pages;
    QPointer<KMTool> m_tool; ///< that is shown
};
