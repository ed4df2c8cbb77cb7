#ifndef ORVIKMESH_WRITERS_MESHWRITER_H
#define ORVIKMESH_WRITERS_MESHWRITER_H

#include "readers/ReadMessages.h"
#include "writers/MeshToWrite.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace OrvikMesh {

/// What the caller of a writer may ask for; empty functions are never called.
struct WriteOptions
{
    /// Asked every few milliseconds; true ends the writing, and nothing is changed on the disk.
    std::function<bool()> isCancelled;
    /// Told the share that is done, from 0 to 1, now and then.
    std::function<void(double)> progress;
};

// Each writer replaces the file in one step when all is written; until then, and for ever when
// something goes wrong, the file is as it was. Numbers of texts do not depend on the locale and
// give the same floats when they are read. Positions and normals are transformed; the vertices keep
// their order, body after body.
//
// Errors, each "<file>: <reason>": nothing to write, more vertices or triangles than the format
// counts, the system's text when the file cannot be written (a full disk, say), cancelling, lack of
// memory. Warnings: bodies that the format cannot hold, which are left out.
//
// One thread each.

/// Writes a binary STL file: the triangles of all bodies with their normals; no names, no colours.
/// Point clouds are left out.
bool WriteStl(const std::wstring& path, const MeshToWrite& mesh, const WriteOptions& options,
              ReadMessages& messages);

/// Writes an OBJ file: an object for each body with its name, positions (with red, green, blue
/// where vertices have colours) and normals. Bodies with a colour come after all others and get a
/// material in a file of the same name that ends in ".mtl", which is put into place just before.
/// Line ends in names become blanks; a name that occurs again gets a number. Point clouds are left
/// out.
bool WriteObj(const std::wstring& path, const MeshToWrite& mesh, const WriteOptions& options,
              ReadMessages& messages);

/// Writes a binary, little-endian PLY file with all bodies as one mesh: positions, normals where
/// all bodies have some, colours where any has (bodies without one are white). Point clouds become
/// points when there is nothing else, and are left out beside triangles.
bool WritePly(const std::wstring& path, const MeshToWrite& mesh, const WriteOptions& options,
              ReadMessages& messages);

/// The same as a text OFF file, with the keyword "OFF", "COFF", "NOFF" or "CNOFF".
bool WriteOff(const std::wstring& path, const MeshToWrite& mesh, const WriteOptions& options,
              ReadMessages& messages);

/// A format that has a writer.
struct WritableFormat
{
    const wchar_t* extension; ///< Upper case, without the dot.
    const wchar_t* name;      ///< For users, of a kind of file.
    bool (*write)(const std::wstring& path, const MeshToWrite& mesh, const WriteOptions& options,
                  ReadMessages& messages);
};

/// All of them; each extension once.
std::span<const WritableFormat> WritableFormats();

/// @return the format with that extension (upper case, without the dot); null when there is none.
const WritableFormat* FindWritableFormat(std::wstring_view extension);

} // namespace OrvikMesh

#endif
