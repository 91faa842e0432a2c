#pragma once

class KMDOutput;
class KMTagBase;
struct KMDReadContext;

/// The bodies of rigid bodies and joints. Lengths and places move with the import scale; limits and springs stay.
namespace KMDPhysicsTags {

KMTagBase *makeBody();
void writeBody(KMDOutput &out, const KMTagBase *tag);
void readBody(KMDReadContext &context, KMTagBase *tag);

KMTagBase *makeJoint();
void writeJoint(KMDOutput &out, const KMTagBase *tag); ///< sides whose body is deleted are written as none
void readJoint(KMDReadContext &context, KMTagBase *tag);

} // namespace KMDPhysicsTags
