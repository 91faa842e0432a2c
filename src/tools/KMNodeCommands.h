#pragma once

#include "tools/KMNodeCommand.h"

class KMCameraNode;
struct KMTransform;

/// Gives all faces the shader that is current in the list of shaders.
class NodeComAssignShader : public KMNodeCommand
{
    Q_OBJECT
public:
    using KMNodeCommand::KMNodeCommand;

protected:
    QString obstacle() const override;
    Work plan() override;
};

/// Base of those that give a node another transform. Vertices of meshes stand in world space and stay where they are.
class KMNodeFrameCommand : public KMNodeCommand
{
    Q_OBJECT
public:
    using KMNodeCommand::KMNodeCommand;

protected:
    Work plan() final;
    virtual void change(KMTransform &transform) const = 0; ///< from what the node has
};

class NodeComClearCoodinate : public KMNodeFrameCommand
{
    Q_OBJECT
public:
    using KMNodeFrameCommand::KMNodeFrameCommand;

protected:
    void change(KMTransform &transform) const override;
};

class NodeComNormalizeCoodinate : public KMNodeFrameCommand
{
    Q_OBJECT
public:
    using KMNodeFrameCommand::KMNodeFrameCommand;

protected:
    void change(KMTransform &transform) const override;
};

/// Leaves the document alone, so a locked node will do.
class NodeComCopyCoodinate : public KMNodeCommand
{
    Q_OBJECT
public:
    using KMNodeCommand::KMNodeCommand;

    static const QString MimeType; ///< position, rotation with w first and scale, as ten floats

protected:
    void run() override;
};

class NodeComPasteCoodinate : public KMNodeFrameCommand
{
    Q_OBJECT
public:
    using KMNodeFrameCommand::KMNodeFrameCommand;

protected:
    QString obstacle() const override;
    void change(KMTransform &transform) const override;
};

/// Asks how close.
class NodeComMergeClosedVertex : public KMNodeCommand
{
    Q_OBJECT
public:
    using KMNodeCommand::KMNodeCommand;

protected:
    Work plan() override;

private:
    double m_distance = 0.001; ///< both kept for the next time
    bool m_selectedOnly = false;
};

/// Puts the box of the lattice around the selected vertices of the mesh above it.
class NodeComFitFFD : public KMNodeCommand
{
    Q_OBJECT
public:
    using KMNodeCommand::KMNodeCommand;

protected:
    QString obstacle() const override { return {}; } // the fit itself says what is missing
    void run() override;
};

/// Replaces the mesh by what its chain of modifiers makes of it.
class NodeComFreezeModifier : public KMNodeCommand
{
    Q_OBJECT
public:
    using KMNodeCommand::KMNodeCommand;

protected:
    void run() override;
};

class NodeComPolygonize : public KMNodeCommand
{
    Q_OBJECT
public:
    using KMNodeCommand::KMNodeCommand;

protected:
    QString obstacle() const override;
    Work plan() override;
};

/// Moves the selected vertices away from the viewer, or towards him, onto what the view shows there of the others:
/// meshes, results of modifiers and primitives that aren't locked.
class NodeComProjection : public KMNodeCommand
{
    Q_OBJECT
public:
    using KMNodeCommand::KMNodeCommand;

    /// Says through which camera the user looks; null for none.
    using CameraSource = std::function<const KMCameraNode *()>;
    void setCameraSource(const CameraSource &source) { m_camera = source; }

protected:
    QString obstacle() const override;
    Work plan() override;

private:
    CameraSource m_camera;
};

/// An empty entry.
class NodeComTest : public KMNodeCommand
{
    Q_OBJECT
public:
    using KMNodeCommand::KMNodeCommand;

protected:
    Work plan() override { return {}; }
};

/// Works on all chosen meshes.
class NodeComViewHideFace : public KMNodeCommand
{
    Q_OBJECT
public:
    using KMNodeCommand::KMNodeCommand;

protected:
    QString obstacle() const override;
    Work plan() override;
};
