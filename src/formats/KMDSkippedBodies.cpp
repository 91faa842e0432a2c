#include "formats/KMDSkippedBodies.h"

#include "core/KMNodeType.h"
#include "core/KMNullNode.h"
#include "formats/KMDNodeBodies.h"
#include "formats/KMDTagBodies.h"

namespace {

/// Steps over fields in the order in which they are named.
class Fields
{
public:
    Fields(KMDReadContext &context, bool ofMesh)
        : m_context(context)
        , m_in(context.in)
        , m_ofMesh(ofMesh)
    {
    }

    bool since(float version) const { return m_in.since(version); }
    bool ofMesh() const { return m_ofMesh; } ///< a tag whose owner is a mesh
    QString name() const { return m_name; }  ///< that the record's transform bears

    Fields &flag(int count = 1) { return over(count); }
    Fields &i32(int count = 1) { return over(4 * count); }
    Fields &id(int count = 1) { return over(8 * count); }
    Fields &f32(int count = 1) { return over(m_in.floatBytes() * count); }
    Fields &text()
    {
        m_in.readString();
        return *this;
    }
    Fields &transform()
    {
        KMNullNode node;
        KMDNodeBodies::readTransform(m_context, &node);
        if (m_name.isNull())
            m_name = node.name();
        return *this;
    }
    Fields &tags()
    {
        KMNullNode node;
        node.setName(m_name);
        KMDTagBodies::readTags(m_context, &node);
        return *this;
    }
    /// A count and that many records.
    template <class Record>
    Fields &list(Record record)
    {
        for (int left = m_in.readCount(1); left > 0 && m_in.ok(); --left)
            record(*this);
        return *this;
    }

private:
    Fields &over(qint64 bytes)
    {
        m_in.skip(bytes);
        return *this;
    }

    KMDReadContext &m_context;
    KMDStream &m_in;
    bool m_ofMesh;
    QString m_name;
};

struct Row
{
    int type;
    void (*skip)(Fields &f);
};

void skipMorph(Fields &f)
{
    f.i32().id().text().f32().i32().list([](Fields &delta) { delta.i32().f32(4); });
}

void skipSelection(Fields &f)
{
    if (!f.ofMesh())
        return;
    const auto number = [](Fields &element) { element.i32(); };
    const auto pair = [](Fields &element) { element.id(); };
    f.list(number).list(number).list(pair).list(pair);
}

void skipNormals(Fields &f)
{
    if (!f.since(4.0f))
        return;
    f.list([](Fields &creaseEnd) { creaseEnd.i32(); });
    f.list([](Fields &face) { face.i32().flag(4).f32(16); });
}

void skipWeights(Fields &f)
{
    f.list([](Fields &entry) { entry.id().i32().f32(); });
    f.list([](Fields &sdefVertex) { sdefVertex.i32(); });
    f.i32(2).f32();
}

constexpr Row nodeRows[] = {
    {KMNodeType::UserCamera, [](Fields &) {}},
    {KMNodeType::ModHair,
     [](Fields &f) {
         f.transform().f32(2).flag(2).i32(2).list([](Fields &point) { point.f32(2); }).f32(2).i32(2).f32(4).tags();
     }},
};

constexpr Row tagRows[] = {
    {KMNodeType::TagSelection, &skipSelection},
    {KMNodeType::TagMorph, [](Fields &f) { f.list(&skipMorph); }},
    {KMNodeType::TagNormal, &skipNormals},
    {KMNodeType::TagBoneWeight, &skipWeights},
    {KMNodeType::TagRigidBody, [](Fields &f) { f.id().i32(2).f32(8).flag().i32(2).f32(9); }},
    {KMNodeType::TagJoint, [](Fields &f) { f.id(3).f32(27); }},
    {KMNodeType::TagConstraint, [](Fields &f) { f.i32().id().f32().i32().f32().i32(); }},
};

template <class Rows>
const Row *find(const Rows &rows, int type)
{
    for (const Row &row : rows) {
        if (row.type == type)
            return &row;
    }
    return nullptr;
}

} // namespace

bool KMDSkippedBodies::skipNode(KMDReadContext &context, int type, QString *name)
{
    const Row *row = find(nodeRows, type);
    if (!row)
        return false;
    Fields fields(context, false);
    row->skip(fields);
    *name = fields.name();
    return true;
}

bool KMDSkippedBodies::skipTag(KMDReadContext &context, int type, const KMContainerNode *owner)
{
    const Row *row = find(tagRows, type);
    if (!row)
        return false;
    Fields fields(context, owner->type() == KMNodeType::Mesh);
    row->skip(fields);
    return true;
}
