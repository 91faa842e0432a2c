#pragma once

#include <QString>

class KMContainerNode;
class KMTreeWidget;

/// What the node tree shows: rows whose name contains a text and whose class is of a family, with the rows above them.
class KMNodeFilter
{
public:
    /// The kinds of nodes that a user tells apart, in the order of the list.
    enum Family { AnyFamily, Values, Nulls, Meshes, Primitives, Modifiers, Bones, FamilyCount };
    static QString familyName(Family family);

    void setText(const QString &text) { m_text = text; }
    void setFamily(Family family) { m_family = family; }
    bool isOn() const { return !m_text.isEmpty() || m_family != AnyFamily; }

    bool matches(const KMContainerNode *node) const;
    void apply(KMTreeWidget *tree) const; ///< hides what doesn't match, or shows all when nothing is filtered

private:
    QString m_text;
    Family m_family = AnyFamily;
};
