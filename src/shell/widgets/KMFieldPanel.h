#pragma once

#include <QWidget>

/// A panel of fields. Tab goes round among them, though the window keeps it from leaving the views: the widgets of a
/// panel take the focus by clicks only.
class KMFieldPanel : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;

    void commit(); ///< hands over what is being typed in any field

protected:
    bool focusNextPrevChild(bool next) override;
};
