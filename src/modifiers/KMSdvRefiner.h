#pragma once

#include "modifiers/KMSdvStencils.h"

#include <memory>
#include <vector>

class KMSdvChannel;
struct KMSdvCage;

/// A cage refined by the rules of Catmull and Clark, for as long as it takes to read from it what is to be kept.
///
/// An edge of more than two faces is a crease, and so is one whose faces are turned against each other. A vertex stays
/// where it is when faces touch there without sharing an edge, or when not just two such creases meet.
class KMSdvRefiner
{
public:
    static constexpr int Linear = 5; ///< interpolation of the channels in each face alone

    struct Options
    {
        int level = 1;
        bool isTriangleSmooth = true;
        int interpolation = Linear; ///< of the channels, from 0, smooth wherever it is
    };

    /// A channel whose corners share nothing is linear in each face.
    KMSdvRefiner(const KMSdvCage &cage, const std::vector<const KMSdvChannel *> &channels, const Options &options);
    ~KMSdvRefiner();

    bool isValid() const { return m_refiner != nullptr; } ///< without it nothing else may be asked

    // Of the last level

    int vertexCount() const;
    int faceCount() const;
    const int *faceCorners(int face) const;             ///< of four vertices
    const int *faceValues(int face, int channel) const; ///< at its four corners

    std::vector<kvm::Vector4> interpolate(int channel, const std::vector<kvm::Vector4> &values) const;
    KMSdvStencils vertexStencils() const;
    KMSdvStencils channelStencils(int channel) const;

private:
    struct Refiner;

    KMSdvStencils stencils(int mode, int channel) const;

    std::unique_ptr<Refiner> m_refiner;
};
