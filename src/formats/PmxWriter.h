#pragma once

class PmxOutput;
struct PmxContents;

/// Writes the sections of a PMX file, one after the other.
class PmxWriter
{
public:
    PmxWriter(PmxOutput &out, const PmxContents &contents)
        : m_out(out)
        , m_contents(contents)
    {
    }

    void write();

private:
    void writeHeader();
    void writeVertices();
    void writeFaces();
    void writeTextures();
    void writeMaterials();
    void writeMaterial(int shader);
    void writeMorphs();
    void writeDisplayFrames();

    PmxOutput &m_out;
    const PmxContents &m_contents;
};
