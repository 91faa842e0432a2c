#pragma once

#include <QWidget>

class QAction;
class QLabel;
class QStackedLayout;
class QVBoxLayout;

/// The middle of the window, where the document is viewed. Until there is a view it is a quiet area in the background
/// colour of the views, with the program's name and the ways to start.
class KMMainBox : public QWidget
{
    Q_OBJECT
public:
    explicit KMMainBox(QWidget *parent = nullptr);

    void setStartActions(const QList<QAction *> &actions); ///< shown as lines with their keys
    void setView(QWidget *view);                           ///< takes the place of the empty page; takes the widget over
    void closeViews();                                     ///< the window closes: views go before the document does

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QWidget *createStartPage();
    void matchInkToBackground();

    QStackedLayout *m_pages;
    QVBoxLayout *m_startLines; // of the start page
    QWidget *m_startPage;
};
