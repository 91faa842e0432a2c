#pragma once

class KmdBytes;

/// Adds a node of every kind that the native file knows and the program doesn't, and all such tags to each node. The
/// last node, an int called "behind", stands below the first of them, whose parent is the null "group".
void addEveryKind(KmdBytes &file);

/// Adds one node at the top, with a body in the words that stand there.
void addRecord(KmdBytes &file, int type, const char *body);

int everyKindNodes();
