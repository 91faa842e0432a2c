#include "formats/KMDSmallTags.h"

#include "core/KMNodeType.h"
#include "formats/KMDMeshBody.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMTagFloatValue.h"
#include "rig/KMTagGroup.h"
#include "rig/KMTagSelection.h"
#include "rig/KMTagText.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace {

using Pair = KMStoredSelection::Pair;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(KMDSmallTags)
};

template <class Tag>
KMTagBase *make()
{
    return new Tag;
}

template <class Tag>
const typename Tag::Parameters &parametersOf(const KMTagBase *tag)
{
    return static_cast<const Tag *>(tag)->parameters();
}

/// Numbers in the file of elements by index; those that aren't in it are left out.
QVector<int> numbered(const QVector<int> &elements, const QVector<int> &numbers)
{
    QVector<int> found;
    for (const int element : elements) {
        if (numbers.value(element, -1) >= 0)
            found << numbers[element];
    }
    return found;
}

void writeNumbers(KMDOutput &out, const QVector<int> &numbers)
{
    out.writeI32(numbers.size());
    for (const int number : numbers)
        out.writeI32(number);
}

void writePairs(KMDOutput &out, const QVector<Pair> &pairs)
{
    out.writeI32(pairs.size());
    for (const Pair &pair : pairs)
        out.writeU64(quint64(quint32(pair.first)) << 32 | quint32(pair.second));
}

QVector<Pair> readPairs(KMDStream &in)
{
    constexpr int pairBytes = 8;
    QVector<Pair> pairs;
    for (int left = in.readCount(pairBytes); left > 0 && in.ok(); --left) {
        const quint64 pair = in.readU64();
        pairs.append({int(quint32(pair >> 32)), int(quint32(pair))});
    }
    return pairs;
}

void writeSelection(KMDOutput &out, const KMTagBase *tag)
{
    const KMMeshNode *mesh = static_cast<const KMTagSelection *>(tag)->mesh();
    if (!mesh)
        return;
    const KMStoredSelection &selection = parametersOf<KMTagSelection>(tag);
    const QVector<int> vertices = KMDMeshBody::vertexNumbers(*mesh);
    const QVector<int> faces = KMDMeshBody::faceNumbers(*mesh);
    writeNumbers(out, numbered(selection.vertices, vertices));
    writeNumbers(out, numbered(selection.faces, faces));
    QVector<Pair> edges;
    for (const Pair &edge : selection.edges) {
        const Pair ends(vertices.value(edge.first, -1), vertices.value(edge.second, -1));
        if (ends.first >= 0 && ends.second >= 0)
            edges << ends;
    }
    QVector<Pair> corners;
    for (const Pair &corner : selection.corners) {
        if (faces.value(corner.first, -1) >= 0)
            corners.append({corner.second, faces[corner.first]}); // the face stands in the low word
    }
    writePairs(out, edges);
    writePairs(out, corners);
}

/// Leaves out what the mesh doesn't have.
template <class Element, class Rule>
QVector<Element> known(KMDStream &in, QVector<Element> elements, const Rule &isThere)
{
    const int count = elements.size();
    elements.erase(std::remove_if(elements.begin(), elements.end(), [&](const Element &e) { return !isThere(e); }),
                   elements.end());
    if (elements.size() < count)
        in.warn(Texts::tr("%1 elements of a remembered selection aren't in the mesh").arg(count - elements.size()));
    return elements;
}

QVector<int> readNumbers(KMDStream &in)
{
    constexpr int numberBytes = 4;
    QVector<int> numbers;
    for (int left = in.readCount(numberBytes); left > 0 && in.ok(); --left)
        numbers << in.readI32();
    return numbers;
}

void readSelection(KMDReadContext &context, KMTagBase *tag)
{
    KMDStream &in = context.in;
    const KMMeshNode *mesh = static_cast<KMTagSelection *>(tag)->mesh();
    if (!mesh)
        return;
    const auto isVertex = [mesh](int v) { return mesh->vertex(v) != nullptr; };
    const auto isFace = [mesh](int f) { return mesh->face(f) != nullptr; };
    KMStoredSelection selection;
    selection.vertices = known(in, readNumbers(in), isVertex);
    selection.faces = known(in, readNumbers(in), isFace);
    selection.edges = known(in, readPairs(in), [&](const Pair &p) { return isVertex(p.first) && isVertex(p.second); });
    for (const Pair &pair : known(in, readPairs(in), [&](const Pair &p) {
             return isFace(p.second) && p.first >= 0 && p.first < mesh->face(p.second)->count;
         }))
        selection.corners.append({pair.second, pair.first});
    for (Pair &edge : selection.edges)
        edge = {std::min(edge.first, edge.second), std::max(edge.first, edge.second)};
    if (in.ok())
        static_cast<KMTagSelection *>(tag)->setParameters(selection);
}

void writeText(KMDOutput &out, const KMTagBase *tag)
{
    out.writeString(parametersOf<KMTagText>(tag));
}

void readText(KMDReadContext &context, KMTagBase *tag)
{
    static_cast<KMTagText *>(tag)->setParameters(context.in.readString());
}

void writeFloat(KMDOutput &out, const KMTagBase *tag)
{
    if (parametersOf<KMTagFloatValue>(tag).value != 0.0f)
        out.warn(Texts::tr("The number of the tag %1 has no place in the file").arg(tag->name()));
}

void readFloat(KMDReadContext &, KMTagBase *) {}

void writeGroup(KMDOutput &out, const KMTagBase *tag)
{
    constexpr int reserved = 3;
    out.writeI32(parametersOf<KMTagGroup>(tag).mode);
    for (int i = 0; i < reserved; ++i)
        out.writeI32(0);
}

void readGroup(KMDReadContext &context, KMTagBase *tag)
{
    constexpr int reservedBytes = 12;
    KMDStream &in = context.in;
    if (!in.since(4.0f))
        return;
    const int mode = in.readI32();
    in.skip(reservedBytes);
    if (mode >= KMTagGroup::Show && mode <= KMTagGroup::ShowSelected)
        static_cast<KMTagGroup *>(tag)->setMode(mode);
    else
        in.warn(Texts::tr("The group tag %1 has the unknown mode %2").arg(tag->name()).arg(mode));
}

constexpr KMDTagBody bodies[] = {
    {KMNodeType::TagSelection, &make<KMTagSelection>, &writeSelection, &readSelection},
    {KMNodeType::TagText, &make<KMTagText>, &writeText, &readText},
    {KMNodeType::TagFloatValue, &make<KMTagFloatValue>, &writeFloat, &readFloat},
    {KMNodeType::TagGroup, &make<KMTagGroup>, &writeGroup, &readGroup},
};

} // namespace

const KMDTagBody *KMDSmallTags::find(int type)
{
    const auto isOfType = [type](const KMDTagBody &body) { return body.type == type; };
    const KMDTagBody *body = std::find_if(std::begin(bodies), std::end(bodies), isOfType);
    return body == std::end(bodies) ? nullptr : body;
}
