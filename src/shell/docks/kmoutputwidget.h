#pragma once

#include "shell/docks/KMDockWidget.h"

class QTextEdit;

/// The log. While it exists, gOutputEdit leads to its text.
class kmoutputwidget : public KMDockWidget
{
    Q_OBJECT
public:
    explicit kmoutputwidget(QWidget *parent = nullptr);
    ~kmoutputwidget() override;

private:
    void showMenu(const QPoint &position);

    QTextEdit *m_text;
};
