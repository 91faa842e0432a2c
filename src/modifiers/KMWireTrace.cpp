#include "modifiers/KMWireTrace.h"

#include "mesh/KMMeshNode.h"

#include <QSet>

#include <algorithm>

namespace {

struct Line
{
    int ends[2];
    int face;

    int otherEnd(int vertex) const { return vertex == ends[0] ? ends[1] : ends[0]; }
};

class Tracer
{
public:
    explicit Tracer(const KMMeshNode &mesh);
    std::vector<KMWireTrace::Run> run();

private:
    /// What a vertex knows of the wire.
    struct Joint
    {
        int degree = 0;
        int lines[2] = {-1, -1}; // the first two
    };

    void collect(const KMMeshNode &mesh, bool fromPolygons);
    KMWireTrace::Run runFrom(int line);
    void extend(KMWireTrace::Run &run);
    int lineBehind(int vertex) const;
    void directAsLines(KMWireTrace::Run &run) const;

    std::vector<Line> m_lines;
    std::vector<Joint> m_joints;
    std::vector<bool> m_used;
};

Tracer::Tracer(const KMMeshNode &mesh)
    : m_joints(size_t(mesh.vertexCount()))
{
    collect(mesh, false);
    if (m_lines.empty())
        collect(mesh, true);
    m_used.resize(m_lines.size());
    for (int i = 0; i < int(m_lines.size()); ++i) {
        for (const int end : m_lines[size_t(i)].ends) {
            Joint &joint = m_joints[size_t(end)];
            if (joint.degree < 2)
                joint.lines[joint.degree] = i;
            ++joint.degree;
        }
    }
}

void Tracer::collect(const KMMeshNode &mesh, bool fromPolygons)
{
    QSet<quint64> seen;
    for (int f = 0; f < mesh.faceCount(); ++f) {
        const KMFace *face = mesh.face(f);
        if (!face || (fromPolygons ? !face->isPolygon() : !face->isLine()))
            continue;
        const int sides = face->isLine() ? 1 : face->count;
        for (int c = 0; c < sides; ++c) {
            const int a = face->indices[c];
            const int b = face->next(c);
            if (a == b || !mesh.vertex(a) || !mesh.vertex(b) || seen.contains(KMEdge::keyOf(a, b)))
                continue;
            seen.insert(KMEdge::keyOf(a, b));
            m_lines.push_back({{a, b}, f});
        }
    }
}

std::vector<KMWireTrace::Run> Tracer::run()
{
    std::vector<KMWireTrace::Run> runs;
    for (int i = 0; i < int(m_lines.size()); ++i) {
        if (!m_used[size_t(i)])
            runs.push_back(runFrom(i));
    }
    return runs;
}

/// The run in terms of vertices and faces.
KMWireTrace::Run Tracer::runFrom(int line)
{
    m_used[size_t(line)] = true;
    KMWireTrace::Run run;
    run.vertices.assign(std::begin(m_lines[size_t(line)].ends), std::end(m_lines[size_t(line)].ends));
    run.lines = {line};
    extend(run);
    std::reverse(run.vertices.begin(), run.vertices.end());
    std::reverse(run.lines.begin(), run.lines.end());
    extend(run);
    std::reverse(run.vertices.begin(), run.vertices.end());
    std::reverse(run.lines.begin(), run.lines.end());

    run.isClosed = run.vertices.front() == run.vertices.back();
    if (run.isClosed)
        run.vertices.pop_back();
    directAsLines(run);
    for (int &l : run.lines)
        l = m_lines[size_t(l)].face;
    return run;
}

/// Goes on behind the last vertex as far as there is one way.
void Tracer::extend(KMWireTrace::Run &run)
{
    for (int line = lineBehind(run.vertices.back()); line >= 0; line = lineBehind(run.vertices.back())) {
        m_used[size_t(line)] = true;
        run.lines.push_back(line);
        run.vertices.push_back(m_lines[size_t(line)].otherEnd(run.vertices.back()));
    }
}

int Tracer::lineBehind(int vertex) const
{
    const Joint &joint = m_joints[size_t(vertex)];
    if (joint.degree != 2)
        return -1;
    for (const int line : joint.lines) {
        if (!m_used[size_t(line)])
            return line;
    }
    return -1;
}

void Tracer::directAsLines(KMWireTrace::Run &run) const
{
    int forward = 0;
    for (size_t i = 0; i < run.lines.size(); ++i)
        forward += m_lines[size_t(run.lines[i])].ends[0] == run.vertices[i] ? 1 : -1;
    if (forward >= 0)
        return;
    // A closed run keeps its first vertex: where it begins at a branching, it still does.
    std::reverse(run.vertices.begin() + (run.isClosed ? 1 : 0), run.vertices.end());
    std::reverse(run.lines.begin(), run.lines.end());
}

} // namespace

std::vector<KMWireTrace::Run> KMWireTrace::runs(const KMMeshNode &mesh)
{
    return Tracer(mesh).run();
}
