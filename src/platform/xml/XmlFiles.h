#pragma once

#include "platform/IFileSystem.h"
#include "platform/xml/XmlDocument.h"

#include <string>

namespace tarvex {

/// Loads a document from a file; false when the file cannot be read or is refused, with the document's LastErrorText
/// set.
bool LoadXmlFile(IFileSystem& files, const std::string& path, XmlDocument& document);

/// Saves a document so that the old or the new file is whole at every moment; raises what ReplaceFile raises.
void SaveXmlFile(IFileSystem& files, const std::string& path, const XmlDocument& document);

}
