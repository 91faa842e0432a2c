#pragma once

/// What the parts are made of.
namespace KMSampleShaders {

enum Shader {
    Skin,
    Face,
    Mouth,
    EyeWhite,
    Iris,
    Lash,
    Brow,
    Hair,
    Jacket,
    Collar,
    Bow,
    Skirt,
    Sock,
    Shoe,
    ShaderCount
};

/// Brings shaders and textures into the open document. The faces of a document refer to them by these numbers when it
/// had none before. Paths are relative to the document.
void addToDocument();

} // namespace KMSampleShaders
