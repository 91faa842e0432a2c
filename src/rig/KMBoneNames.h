#pragma once

#include "core/KMUniqueName.h"

#include <QSet>
#include <QString>

#include <map>

class KMBoneContainer;

/// Names for several new bones of a container, which is looked through once.
class KMBoneNames
{
public:
    explicit KMBoneNames(const KMBoneContainer &container); ///< those of its live bones are in use

    bool isTaken(const QString &name) const { return m_taken.contains(name); }
    void take(const QString &name); ///< this name is in use from now on
    /// Takes the name without digits, and the first free number behind it.
    QString unique(const QString &name);

private:
    QSet<QString> m_taken;
    std::map<QString, KMNumberedNames> m_numbered; // by the name without digits, as far as asked for
};
