#pragma once

#include <QObject>

class QScreen;

/// Logs the displays, at the start and whenever something about them changes. Nothing is rescaled while running.
class KMScreenManager : public QObject
{
    Q_OBJECT
public:
    explicit KMScreenManager(QObject *parent = nullptr);

public slots:
    void screenStatusChanged();

private:
    void watch(const QScreen *screen);
};
