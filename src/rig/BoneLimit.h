#pragma once

/// Angular limits of a bone in radians, as a solver of the model uses them: H, P and B are the x, y and z of a link.
/// A new one allows the full turn and is switched off.
struct BoneLimit
{
    float maxH = 3.1415927f;
    float minH = -3.1415927f;
    float maxP = 3.1415927f;
    float minP = -3.1415927f;
    float maxB = 3.1415927f;
    float minB = -3.1415927f;
    bool enabled = false;

    /// Which fields an edit has touched.
    enum Field : int { Enabled = 1, MinH = 2, MaxH = 4, MinP = 8, MaxP = 16, MinB = 32, MaxB = 64, AllFields = 127 };

    void take(const BoneLimit &other, int fields); ///< copies the fields of the mask
};

bool operator==(const BoneLimit &a, const BoneLimit &b); ///< exact
bool operator!=(const BoneLimit &a, const BoneLimit &b);
