#pragma once

#include <QObject>

/// Where input comes from besides mouse and keyboard.
class KMInputDevice : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    virtual QString name() const = 0;
};
