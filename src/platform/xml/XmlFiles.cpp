#include "platform/xml/XmlFiles.h"

#include "base/Error.h"
#include "platform/xml/XmlGuard.h"

namespace tarvex {

bool LoadXmlFile(IFileSystem& files, const std::string& path, XmlDocument& document)
{
    try {
        return document.LoadText(files.ReadWholeFile(path, kXmlMaxBytes));
    } catch (const Error& error) {
        document = XmlDocument();
        document.SetLastErrorText(error.Description());
        return false;
    }
}

void SaveXmlFile(IFileSystem& files, const std::string& path, const XmlDocument& document)
{
    files.ReplaceFile(path, document.ToText());
}

}
