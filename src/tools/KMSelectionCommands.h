#pragma once

#include "math/Vector3.h"
#include "tools/KMSelectionCommand.h"

class KMAlignVertexDialog;

/// Asks for the axes and values, and for world or local space.
class SelComAlignVertex : public KMSelectionCommand
{
    Q_OBJECT
public:
    using KMSelectionCommand::KMSelectionCommand;

protected:
    bool ask(const QList<KMMeshNode *> &meshes) override;
    void runOn(KMMeshNode &mesh) override;

private:
    bool m_isWorld = true;
    bool m_aligns[3] = {};
    kvm::Vector3 m_values;
};

/// Gives the shader that is current in the list of shaders.
class SelComAssignShader : public KMSelectionCommand
{
    Q_OBJECT
public:
    using KMSelectionCommand::KMSelectionCommand;

protected:
    QString obstacle() const override;
    void runOn(KMMeshNode &mesh) override;
};

/// Asks into how many parts.
class SelComDivideEdge : public KMSelectionCommand
{
    Q_OBJECT
public:
    using KMSelectionCommand::KMSelectionCommand;

protected:
    bool ask(const QList<KMMeshNode *> &meshes) override;
    void runOn(KMMeshNode &mesh) override;

private:
    int m_division = 2; ///< kept for the next time
};

/// Works on meshes with exactly two selected vertices, one on each side of the plane.
class SelComSymmetrizingVertex : public KMSelectionCommand
{
    Q_OBJECT
public:
    using KMSelectionCommand::KMSelectionCommand;

protected:
    QString obstacle() const override;
    void runOn(KMMeshNode &mesh) override;
};

/// An empty entry.
class SelComTest : public KMSelectionCommand
{
    Q_OBJECT
public:
    using KMSelectionCommand::KMSelectionCommand;

protected:
    QString obstacle() const override { return {}; }
    bool ask(const QList<KMMeshNode *> &) override { return false; }
};
