#pragma once

class QString;

/// Real faults, for the tests of the road that a fault takes.
namespace KMTestFault {

/// Does what the name says, see KMSelfTest; an unknown name does nothing.
void raise(const QString &name);

} // namespace KMTestFault
