#pragma once

#include <QToolBar>

class QMenu;

/// Base of the window's tool bars. Its menu chooses between icons and texts.
class KMPanelBar : public QToolBar
{
    Q_OBJECT
public:
    KMPanelBar(const QString &objectName, const QString &title, QWidget *parent = nullptr);

    void setButtonStyle(int style); ///< one of Qt::ToolButtonStyle, as a file has it; the nearest for another number

protected:
    virtual void addEntries(QMenu *) {} ///< of the bar itself, in front of the styles

private:
    void showMenu(const QPoint &position);
};
