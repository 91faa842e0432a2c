#pragma once

class QString;

/// Real faults, for the tests of the road that a fault takes.
namespace KMTestFault {

/// Gives the session what the fault of that name needs. Nothing for most of them.
void prepare(const QString &name);

/// Does what the name says, see KMSelfTest; an unknown name does nothing.
void raise(const QString &name);

} // namespace KMTestFault
