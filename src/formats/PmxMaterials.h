#pragma once

struct PmxFile;
class QDir;

/// The textures and materials of a PMX file as nodes of the document, behind those that it has.
namespace PmxMaterials {

/// Opens no macro. Paths are relative to the folder.
void push(const PmxFile &file, const QDir &folder);

} // namespace PmxMaterials
