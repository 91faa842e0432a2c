#pragma once

#include "shell/docks/KMDockWidget.h"

class KMTool;
class QLabel;
class QStackedWidget;

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
    QLabel *m_icon;
    QLabel *m_title;
    QStackedWidget *m_pages;
};
