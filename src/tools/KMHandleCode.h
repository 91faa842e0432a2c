#pragma once

/// What parts of the transform handle stand for, and which of them are shown.
namespace KMHandleCode {

/// A part, or several at once: the centre moves freely, and so on.
enum Code {
    NoPart = 0,
    MoveX = 1,
    MoveY = 2,
    MoveZ = 4,
    Move = MoveX | MoveY | MoveZ,
    ScaleX = 8,
    ScaleY = 16,
    ScaleZ = 32,
    Scale = ScaleX | ScaleY | ScaleZ,
    RotateX = 64,
    RotateY = 128,
    RotateZ = 256,
    Rotate = RotateX | RotateY | RotateZ,
    Ring = 512,
    AsItIs = 0x400 ///< the mode of the handle doesn't turn it into another one
};

enum Mode { Translates = 1, Rotates = 2, Scales = 4, HasRing = 8, HasCentre = 16, Everything = 23 };

/// What a press on a part does in a mode of the handle: the centre alone does what the only kind of part does. Shift
/// makes it scale where the view is free.
constexpr int rewritten(int code, int mode, bool isShiftHeld, bool isFreeView)
{
    if (code & AsItIs)
        return code & ~AsItIs;
    const auto isCentre = [](int c) { return (c & Move) == Move; };
    const int kinds = mode & (Translates | Rotates | Scales);
    if (kinds == Scales && isCentre(code))
        return Scale;
    if (kinds == Rotates && isCentre(code))
        return Rotate;
    return isShiftHeld && isFreeView && isCentre(code) ? int(Scale) : code;
}

} // namespace KMHandleCode
