#pragma once

#include "core/KMNode.h"

#include <QList>

/// The nodes of one family as their own class. The project keeps base pointers, since it doesn't know the
/// classes of the layers above; the cast happens where the class is known.
/// A view shares the list as it was when the view was made: loops may change the project.
template <class T>
class KMNodeListView
{
public:
    class const_iterator
    {
    public:
        explicit const_iterator(QList<KMNode *>::const_iterator at)
            : m_at(at)
        {
        }
        T *operator*() const { return static_cast<T *>(*m_at); }
        const_iterator &operator++()
        {
            ++m_at;
            return *this;
        }
        bool operator!=(const const_iterator &other) const { return m_at != other.m_at; }
        bool operator==(const const_iterator &other) const { return m_at == other.m_at; }

    private:
        QList<KMNode *>::const_iterator m_at;
    };

    explicit KMNodeListView(const QList<KMNode *> &nodes)
        : m_nodes(nodes)
    {
    }

    const_iterator begin() const { return const_iterator(m_nodes.cbegin()); }
    const_iterator end() const { return const_iterator(m_nodes.cend()); }
    int size() const { return m_nodes.size(); }
    bool isEmpty() const { return m_nodes.isEmpty(); }
    T *at(int index) const { return static_cast<T *>(m_nodes.at(index)); }
    T *value(int index) const { return static_cast<T *>(m_nodes.value(index, nullptr)); } ///< null outside the list
    T *first() const { return at(0); }
    T *last() const { return at(size() - 1); }
    int indexOf(const KMNode *node) const { return m_nodes.indexOf(const_cast<KMNode *>(node)); }
    bool contains(const KMNode *node) const { return m_nodes.contains(const_cast<KMNode *>(node)); }
    /// By value, since views are temporaries; const, so that loops over it don't copy the list.
    const QList<KMNode *> nodes() const { return m_nodes; }

private:
    QList<KMNode *> m_nodes;
};
