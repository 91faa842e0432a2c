#pragma once

#include <QStackedWidget>

/// The layouts of the views, of which one is shown.
class KMStacked : public QStackedWidget
{
    Q_OBJECT
public:
    explicit KMStacked(QWidget *parent = nullptr);
};
