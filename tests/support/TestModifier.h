#pragma once

#include "core/KMNodeType.h"
#include "core/KMNullNode.h"
#include "core/KMTagBase.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"

#include <QStringList>

/// A stage of a chain that does nothing but note what it is told.
class TestModifier : public KMNullNode, public KMMeshModifier
{
public:
    TestModifier(KMMeshNode *source, QStringList *log, const QString &name)
        : m_source(source)
        , m_log(log)
    {
        setType(KMNodeType::ModSym);
        setName(name);
        m_result.setOwner(this, this);
        source->addModifierEntry(true, this);
    }
    ~TestModifier() override { m_source->removeModifierEntry(this); }

    KMContainerNode *modifierNode() override { return this; }
    KMMeshNode *modMesh() const override { return const_cast<KMMeshNode *>(&m_result); }
    KMMeshNode *source() const override { return m_source; }
    KMMeshModifier *previous() const override { return nullptr; }
    KMMeshModifier *next() const override { return nextStage; }

    void attach(KMMeshNode *source, KMMeshModifier *) override { m_source = source; }
    void detach() override { note("detach"); }
    void setNext(KMMeshModifier *next) override { nextStage = next; }
    void setLast(bool last) override { m_isLast = last; }
    bool isLast() const override { return m_isLast; }
    void setBypassed(bool) override {}
    bool isBypassed() const override { return false; }

    void clearResult() override { note("clearResult"); }
    void rebuild() override { note("rebuild"); }
    bool update() override
    {
        note("update");
        return topologyChanges;
    }
    void copyFaceFlags() override { note("copyFaceFlags"); }
    void remapIndices() override { note("remapIndices"); }
    void onVertexFlagsChanged() override { note("onVertexFlagsChanged"); }
    void onPositionsChanged() override { note("onPositionsChanged"); }
    void onWeightChanged() override { note("onWeightChanged"); }
    void onShaderChanged() override { note("onShaderChanged"); }
    void onModMeshEdited(KMMeshNode *) override { note("onModMeshEdited"); }
    void updateTags() override { note("updateTags"); }

    bool topologyChanges = false;
    KMMeshModifier *nextStage = nullptr;

private:
    void note(const char *call) { *m_log << name() + QLatin1Char('.') + QLatin1String(call); }

    KMMeshNode *m_source;
    QStringList *m_log;
    KMMeshNode m_result;
    bool m_isLast = false;
};

/// A tag that notes what its mesh tells it, and lays an offset on the first vertex.
class TestMeshTag : public KMTagBase
{
public:
    explicit TestMeshTag(QStringList *log)
        : m_log(log)
    {
        setName(QStringLiteral("tag"));
    }

    void unapply() override
    {
        *m_log << QStringLiteral("tag.unapply");
        move(-offset);
    }
    void apply() override
    {
        *m_log << QStringLiteral("tag.apply");
        move(offset);
    }
    void onFullRefresh() override { *m_log << QStringLiteral("tag.onFullRefresh"); }
    void onNodeEvent(quint32 flags) override { *m_log << QStringLiteral("tag.onNodeEvent %1").arg(flags); }
    void remapIndices() override { *m_log << QStringLiteral("tag.remapIndices"); }
    KMTagBase *clone() const override { return new TestMeshTag(m_log); }

    float offset = 0.0f;

private:
    void move(float by)
    {
        auto *mesh = nodeAs<KMMeshNode>(owner());
        if (mesh->vertex(0))
            mesh->vertex(0)->pos.y += by;
    }

    QStringList *m_log;
};
