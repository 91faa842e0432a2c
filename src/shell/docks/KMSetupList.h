#pragma once

#include <QListWidget>

/// A list whose rows are dragged to another place, edited in place and, where it says so, take what is dropped from
/// elsewhere. It changes nothing itself: it tells what the user wants, and is filled again when that was done.
class KMSetupList : public QListWidget
{
    Q_OBJECT
public:
    /// Drags from other widgets that it takes; none for a list that only reorders itself.
    explicit KMSetupList(const QStringList &mimeTypes, QWidget *parent = nullptr);

    QList<int> chosenRows() const; ///< ascending

signals:
    void movesWanted(const QList<int> &rows, int place); ///< before the row that stands at the place now
    void dropped(const QMimeData *data, int place);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    bool takes(const QDropEvent *event) const;
    int placeAt(const QPoint &position) const;

    QStringList m_mimeTypes;
};
