#pragma once

class KMDOutput;
class KMTagBase;
struct KMDReadContext;

/// The body of a normal tag: creases, and the faces with overridden normals. Like all indices of the file
/// those of vertices and faces count only slots that hold a record.
namespace KMDNormalTag {

KMTagBase *make();
void write(KMDOutput &out, const KMTagBase *tag);
void read(KMDReadContext &context, KMTagBase *tag); ///< leaves out, with a warning, what the mesh doesn't have

} // namespace KMDNormalTag
