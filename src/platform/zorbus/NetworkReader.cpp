#include "platform/zorbus/NetworkReader.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "platform/xml/XmlDocument.h"
#include "platform/zorbus/ElementPlace.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <set>

namespace tarvex {

namespace {

constexpr const char* kSource = "NetworkReader";
constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kHighestWord = 32767;
constexpr std::int32_t kHighestWait = 60'000;
constexpr double kHighestFactor = 10;

constexpr std::array<std::string_view, 11> kOperations{
    "OpenZone",   "CloseZone",   "StartCaptureLog",    "DiscoverNodes", "ReadNodeRecord", "PingNode",
    "RebootNode", "CommandNode", "ReadSlotPopulation", "ReadParameter", "WriteParameter"};

/// What is wrong with an element.
struct Refusal {
    XmlElement element;
    std::string why;
};

[[noreturn]] void Refuse(const XmlElement& element, const std::string& why) { throw Refusal{element, why}; }

/// One element whose attributes are read; what is wrong with them is told with the names of both.
class Attributes {
public:
    explicit Attributes(XmlElement element) : element_(element) {}

    bool Has(const char* name) const { return element_.HasAttribute(name); }
    std::string Text(const char* name) const { return std::string(element_.Attribute(name)); }

    std::int32_t Decimal(const char* name, std::int32_t standard, std::int32_t lowest, std::int32_t highest) const
    {
        return Has(name) ? Checked(name, TryParseDecimal(Text(name)), lowest, highest) : standard;
    }

    std::int32_t Hex(const char* name, std::int32_t lowest, std::int32_t highest) const
    {
        return Checked(name, TryParseHex(Text(name)), lowest, highest);
    }

    std::optional<std::int32_t> OptionalHex(const char* name) const
    {
        return Has(name) ? std::optional(Hex(name, 0, kHighest)) : std::nullopt;
    }

    std::optional<std::int32_t> OptionalDecimal(const char* name) const
    {
        return Has(name) ? std::optional(Decimal(name, 0, 0, kHighestWord)) : std::nullopt;
    }

    /// The name of an operation of the library.
    std::string Operation() const
    {
        return Has("operation") ? std::string(OneOf("operation", kOperations)) : std::string();
    }

    /// One of these texts; the first when the attribute is not there.
    template <std::size_t Count>
    std::string_view OneOf(const char* name, const std::array<std::string_view, Count>& known) const
    {
        if (!Has(name))
            return known.front();
        const auto* const found = std::find(known.begin(), known.end(), Text(name));
        if (found == known.end())
            Refuse(element_, std::string(name) + " \"" + Text(name) + "\" is not known");
        return *found;
    }

    bool Flag(const char* name, bool standard) const
    {
        return OneOf<2>(name, {standard ? "true" : "false", standard ? "false" : "true"}) == "true";
    }

private:
    std::int32_t Checked(const char* name, std::optional<std::int32_t> value, std::int32_t lowest,
                         std::int32_t highest) const
    {
        if (!value || *value < lowest || *value > highest)
            Refuse(element_, std::string(name) + " \"" + Text(name) + "\" is no number in its range");
        return *value;
    }

    XmlElement element_;
};

/// The numbers of a list that is separated by blanks.
template <class Parse>
std::vector<std::int16_t> ReadList(const XmlElement& element, std::string_view text, std::int32_t highest, Parse parse)
{
    std::vector<std::int16_t> numbers;
    for (const std::string& word : Split(text, " ")) {
        if (word.empty())
            continue;
        const std::optional<std::int32_t> number = parse(word);
        if (!number || *number < 0 || *number > highest)
            Refuse(element, "\"" + word + "\" is no number in its range");
        numbers.push_back(static_cast<std::int16_t>(*number)); // a board id takes all 16 bits
    }
    if (numbers.size() > static_cast<std::size_t>(kHighestWord))
        Refuse(element, "too many numbers");
    return numbers;
}

/// Reads one description; counts what grows by multiplication.
class Reader {
public:
    SimulatedNetwork Read(XmlElement root)
    {
        const Attributes attributes(root);
        if (attributes.Has("version"))
            network_.version = attributes.Text("version");
        network_.isInstalled = attributes.Flag("installed", true);
        network_.waitFactor = Factor(root);
        for (const XmlElement& wait : root.Children("Wait"))
            ReadWait(wait);
        for (const XmlElement& fault : root.Children("Fault"))
            network_.faults.push_back(ReadFault(fault));
        for (const XmlElement& port : root.Children("Port"))
            network_.ports.push_back(ReadPort(port));
        return std::move(network_);
    }

private:
    static double Factor(XmlElement root)
    {
        if (!root.HasAttribute("waitFactor"))
            return 1;
        const std::string_view text = root.Attribute("waitFactor");
        double factor = -1;
        const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), factor);
        if (failure != std::errc() || end != text.data() + text.size() || !(factor >= 0 && factor <= kHighestFactor))
            Refuse(root, "waitFactor is no number from 0 to 10");
        return factor;
    }

    /// Closing takes no time: a link closes its zone at its end, where nothing may wait.
    void ReadWait(XmlElement element)
    {
        const Attributes attributes(element);
        const std::string operation = attributes.Operation();
        if (operation.empty() || operation == "CloseZone")
            Refuse(element, "no operation that can wait");
        network_.waits[operation] = std::chrono::milliseconds(attributes.Decimal("milliseconds", 0, 0, kHighestWait));
    }

    static FaultRule ReadFault(XmlElement element)
    {
        const Attributes attributes(element);
        FaultRule rule;
        rule.operation = attributes.Operation();
        rule.port = attributes.OptionalDecimal("port");
        rule.node = attributes.OptionalHex("node");
        rule.aspi = attributes.OptionalDecimal("aspi");
        rule.baseAddress = attributes.OptionalHex("base");
        rule.parameterId = attributes.OptionalHex("parameter");
        rule.after = attributes.Decimal("after", 0, 0, kHighest);
        rule.times = attributes.Decimal("times", -1, -1, kHighest);
        if (attributes.OneOf<2>("as", {"status", "refused"}) == "refused")
            rule.kind = FaultRule::Kind::Refused;
        return rule;
    }

    SimulatedPort ReadPort(XmlElement element)
    {
        const Attributes attributes(element);
        SimulatedPort port;
        port.number = static_cast<std::int16_t>(attributes.Decimal("number", 1, 1, kHighestWord));
        port.baudRate = attributes.Decimal("baud", port.baudRate, 1, kHighest);
        port.isBusy = attributes.Flag("busy", false);
        if (!portNumbers_.insert(port.number).second)
            Refuse(element, "there are two ports " + std::to_string(port.number));
        std::set<std::int32_t> nodeIds;
        for (const XmlElement& node : element.Children("Node")) {
            port.nodes.push_back(ReadNode(node));
            if (!nodeIds.insert(port.nodes.back().record.nodeId).second)
                Refuse(node, "there are two nodes " + ToHex(port.nodes.back().record.nodeId) + " on the port");
            if (port.nodes.size() > static_cast<std::size_t>(kHighestWord))
                Refuse(element, "too many nodes");
        }
        return port;
    }

    SimulatedNode ReadNode(XmlElement element)
    {
        const Attributes attributes(element);
        SimulatedNode node;
        node.record = {attributes.Hex("id", 1, kHighest),
                       attributes.Decimal("type", 0, 0, kHighest),
                       static_cast<std::uint8_t>(attributes.Decimal("qualifier", 0, 0, 255)),
                       attributes.Text("description"),
                       attributes.Text("name"),
                       attributes.Text("firmware")};
        node.isMute = attributes.Flag("mute", false);
        node.silenceOfReboot = attributes.Decimal("silentPings", 0, 0, kHighest);
        node.slots = ReadList(element, element.ChildContent("Slots"), 0xFFFF, TryParseHex);
        for (const XmlElement& processors : element.Children("Processors"))
            ReadProcessors(processors, node);
        return node;
    }

    void ReadProcessors(XmlElement element, SimulatedNode& node)
    {
        const auto aspis = ReadList(element, element.Attribute("aspi"), kHighestWord, TryParseDecimal);
        for (const XmlElement& parameter : element.Children("Parameter")) {
            parameterCount_ += aspis.size();
            if (parameterCount_ > kMostParameters)
                Refuse(element, "more than " + std::to_string(kMostParameters) + " parameters");
            ReadParameter(parameter, aspis, node);
        }
    }

    static void ReadParameter(XmlElement element, const std::vector<std::int16_t>& aspis, SimulatedNode& node)
    {
        const Attributes attributes(element);
        ParameterPlace place;
        place.baseAddress = static_cast<std::int16_t>(attributes.Hex("base", 0, kHighestWord));
        place.parameterId = static_cast<std::int16_t>(attributes.Hex("id", 0, kHighestWord));
        SimulatedParameter parameter;
        parameter.live = attributes.Has("value") ? attributes.Hex("value", -kHighest - 1, kHighest) : 0;
        parameter.flash = parameter.live;
        const auto access = attributes.OneOf<3>("access", {"ReadWrite", "ReadOnly", "WriteOnly"});
        parameter.isReadable = access != "WriteOnly";
        parameter.isWritable = access != "ReadOnly";
        for (const std::int16_t aspi : aspis) {
            place.aspi = aspi;
            node.parameters[place] = parameter;
        }
    }

    SimulatedNetwork network_;
    std::set<std::int16_t> portNumbers_;
    std::size_t parameterCount_ = 0;
};

}

SimulatedNetwork ReadNetwork(const XmlDocument& document, std::string_view text)
{
    const XmlElement root = document.Root();
    try {
        if (root.Tag() != "ZorbusNetwork")
            Refuse(root, "this is no network description");
        return Reader().Read(root);
    } catch (const Refusal& refusal) {
        Raise(ObjectError(1), kSource,
              "Element " + std::string(refusal.element.Tag()) + ": " + refusal.why + " (" +
                  PlaceOf(refusal.element, document, text) + ")");
    }
}

}
