#pragma once

#include "platform/xml/XmlDocument.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

// Searches in an init or data file. Each looks only where the element belongs and compares texts exactly, untrimmed.

/// A device's description and the functional component that holds it; both none when there is no such device.
struct DeviceElements {
    XmlElement component;
    XmlElement description;
};

/// All functional components at any depth, in document order.
std::vector<XmlElement> FunctionalComponents(XmlElement root);

/// Names of all functional components, in document order.
std::vector<std::string> ComponentNames(XmlElement root);

/// The product descriptions of one option of a component (of all options for kAllOptions), in document order.
std::vector<XmlElement> ProductDescriptions(XmlElement component, std::string_view option);

/// Names of the devices of an option over all components, in document order.
std::vector<std::string> DeviceNames(XmlElement root, std::string_view option);

/// The first device of this name.
DeviceElements FindDevice(XmlElement root, std::string_view deviceName);

/// The first Product, child of a component's Option, with this `name` attribute, or none.
XmlElement FindProduct(XmlElement root, std::string_view product);

}
