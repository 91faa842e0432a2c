#pragma once

class KMBoneContainer;
class QWidget;

/// What a PMX file shall take of the document.
struct PmxExportOptions
{
    float scale = 0.1f;     ///< of every length
    float edgeScale = 1.0f; ///< of the outlines of materials
    bool viewNodesOnly = true;
    bool freezeMods = true; ///< meshes as their chains make them; off: as they were modelled
    bool skipHideFace = false;
    bool noOverwritePrompt = false; ///< pictures that are converted go over what is there
    bool relativePaths = true;      ///< of textures, from the folder of the file
    bool psdToPng = false;
    bool convertAxis = false; ///< local axes of arms and hands as players expect them
    bool skipPhysics = false;
    bool developmentFlip = false; ///< X runs the other way
    KMBoneContainer *root = nullptr;
    QWidget *parent = nullptr; ///< of questions that come up on the way
};
