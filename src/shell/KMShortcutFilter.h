#pragma once

#include <QObject>

/// The application-wide watch over pressed keys. In a field for text, and on a cell that can be typed into, the keys
/// are the field's; anywhere else the shortcuts of the current tool come before those of the menus.
class KMShortcutFilter : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    static bool isTextEditor(const QObject *object);

    bool eventFilter(QObject *watched, QEvent *event) override;
};
