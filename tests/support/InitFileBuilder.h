#pragma once

#include <string>

namespace tarvex {

/// Text of an element; the tag may carry attributes.
inline std::string Xml(const std::string& tag, const std::string& content)
{
    return "<" + tag + ">" + content + "</" + tag.substr(0, tag.find(' ')) + ">\n";
}

/// A register; `more` is what stands after its name (Bits, Default, Dependency, Value).
inline std::string RegisterXml(const std::string& name, const std::string& address, const std::string& more = {})
{
    return Xml("Register", Xml("Address", address) + Xml("RegisterName", name) + more);
}

inline std::string BitsXml(const std::string& access, const std::string& bits, const std::string& description = {})
{
    return Xml("Bits access=\"" + access + "\" description=\"" + description + "\"", bits);
}

/// One bit field of a property.
inline std::string FieldXml(const std::string& name, const std::string& registerName,
                            const std::string& parentBit = "0:7", const std::string& bitIndex = "0:7")
{
    return Xml("BitsDescriptor", Xml("Name", name) + Xml("RegisterName", registerName) + Xml("ParentBit", parentBit) +
                                     Xml("BitIndex", bitIndex));
}

inline std::string PropertyXml(const std::string& name, const std::string& content)
{
    return Xml("Property name=\"" + name + "\"", content);
}

/// An init or data file with one functional component. Each member is what stands in its place and can be replaced.
struct InitFileBuilder {
    std::string root = "SignalTarvex";
    std::string version = "2.5.0";
    std::string vid = "12C5";
    std::string component = "Family";
    std::string device = "Board";
    std::string links = LinkXml("Demo", "NVSignalProcessing");
    std::string identity =
        Xml("PID", "0A51") + Xml("BoardID", "A100") + Xml("BoardID", "A101") + Xml("ConfigInterface", "I2C");
    std::string wordSize = "1";
    std::string baseAddress = "0451";
    std::string registers = RegisterXml("Gain", "20", Xml("Default", "80")) + RegisterXml("Offset", "21");
    std::string moreLists;
    std::string properties;

    static std::string LinkXml(const std::string& name, const std::string& protocol)
    {
        return Xml("CommLink", Xml("Name", name) + Xml("Protocol", protocol));
    }

    std::string Description() const { return Xml("ProductDescription", Xml("Name", device) + identity); }

    std::string Map() const
    {
        return Xml("RegisterWordSize", wordSize) +
               Xml("RegisterList baseAddress=\"" + baseAddress + "\" description=\"First list\"", registers) +
               moreLists + Xml("PropertyList", properties);
    }

    std::string Component() const
    {
        return Xml("FunctionalComponent",
                   Xml("Name", component) +
                       Xml("Option", Xml("Product name=\"" + device + "\"", links + Description())) +
                       Xml("Attributes", Xml("I2CAttributes", Map())));
    }

    /// The file with `more` behind its component.
    std::string Text(const std::string& more = {}) const
    {
        return Xml(root + " version=\"" + version + "\"", Xml("VID", vid) + Component() + more);
    }
};

/// An init file of a board with many registers: all access kinds, defaults, bit descriptions, a dependency in every
/// tenth register and a property for every fifth.
inline InitFileBuilder ManyRegisters(int count)
{
    static constexpr const char* kHex = "0123456789ABCDEF";
    InitFileBuilder file;
    file.registers.clear();
    for (int i = 0; i < count; ++i) {
        const std::string name = "Register " + std::to_string(i);
        std::string more = Xml("Description", "What register number " + std::to_string(i) + " is good for") +
                           Xml("Default", std::string{kHex[i % 16], kHex[i / 16 % 16]}) +
                           BitsXml("ReadWrite", "4:7", "Upper half") + BitsXml("ReadOnly", "2,3", "State") +
                           BitsXml("Reserved", "0:1");
        if (i % 10 == 9)
            more += Xml("Dependency", "Register " + std::to_string((i + 1) % count));
        file.registers += RegisterXml(
            name, std::string{kHex[i / 4096 % 16], kHex[i / 256 % 16], kHex[i / 16 % 16], kHex[i % 16]}, more);
        if (i % 5 == 0)
            file.properties += PropertyXml("Property " + std::to_string(i),
                                           Xml("HelpTip", "tip.rtf") + FieldXml("Value", name, "4:7", "0:3"));
    }
    return file;
}

}
