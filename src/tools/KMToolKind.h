#pragma once

/// What is fixed about a tool: a row of the table of all tools, in the order of their ids.
struct KMToolKind
{
    enum Id {
        Move = 1,
        Rotate,
        Scale,
        Select,
        Erase,
        Universal,
        Cutter,
        SRT,
        Patch,
        UV,
        Magnet,
        Weight,
        Pen,
        Extrude,
        Bevel,
        Bone,
        BoneWeight,
        Animation,
        Normal,
        Paint3D,
        Sculpt,
        Last = Sculpt
    };

    int id;
    const char *icon;
    const char *text;       ///< of the button; of the context "KMTool"
    const char *objectName; ///< of the button and of its page in the panel
    const char *key;
    int mask;
    const char *tip; ///< for the message line

    static const KMToolKind &of(int id); ///< one of Id
};
