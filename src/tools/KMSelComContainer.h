#pragma once

#include "core/KMCommandContainer.h"

/// The commands on selected elements.
class KMSelComContainer : public KMCommandContainer
{
    Q_OBJECT
public:
    explicit KMSelComContainer(QObject *parent = nullptr);

    QList<QAction *> conversions() const { return group(true); } ///< that make another selection out of one
    QList<QAction *> edits() const { return group(false); }      ///< the others

private:
    QList<QAction *> group(bool conversions) const;
};
