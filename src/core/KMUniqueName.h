#pragma once

#include <QString>

#include <bitset>

/// Finds the first free one of the names base0, base1, ... base999 among those that are in use.
/// A document holds thousands of names, so they are looked at one by one and not collected.
class KMNumberedNames
{
public:
    explicit KMNumberedNames(const QString &base);
    void take(const QString &name);               ///< this name is in use
    bool isFull() const { return m_taken.all(); } ///< more names in use make no difference
    QString firstFree() const;                    ///< base999 when all are in use

private:
    static constexpr int Limit = 1000;

    QString m_base;
    std::bitset<Limit> m_taken;
};

/// The name without the digits at its end; digits further in stay.
QString withoutTrailingDigits(const QString &name);
