#pragma once

class KMBoneContainer;

/// The bones: the template for MMD fitted to the figure, and rows of bones in hair and skirt.
namespace KMSampleRig {

/// Brings a rig into the open document.
KMBoneContainer *build();

} // namespace KMSampleRig
