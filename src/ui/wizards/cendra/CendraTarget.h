#pragma once

#include "ui/wizards/frame/IWizardHost.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace tarvex {

class Enclosure;
class RegisterObject;

/// The current connector while there is none.
inline constexpr std::uint16_t kNoConnector = 65535;

/// The enclosure and the connector in it that the wizard works on, and with them the signal processor that every
/// transfer goes to. The wizard's product owns it; it never speaks to hardware.
class CendraTarget {
public:
    /// Hands over the frame, before everything else.
    void Attach(IWizardHost& host) { host_ = &host; }
    IWizardHost& Host() const { return *host_; }

    /// Makes an enclosure the one in use, with no connector yet.
    void Use(std::shared_ptr<Enclosure> enclosure);
    /// Lets go of the enclosure.
    void Release() { Use(nullptr); }
    /// Raises 5 before there is one.
    const Enclosure& TheEnclosure() const;
    /// Its name; empty before there is one.
    std::string EnclosureName() const;
    /// Gives the controller the enclosure's address, by which a lost link is connected again. To be called whenever
    /// the controller has made a register map, which has an id of its own.
    void AddressController() const;

    /// Makes the connector of a leaf of the tree current and shows it to the main window. False for the key of
    /// something else, which changes nothing.
    bool Choose(const std::string& key);
    bool HasConnector() const { return connector_ != kNoConnector; }
    /// Whether the boards of a product of the enclosure, counted from 0, have the registers that the controller knows;
    /// those of another product must not be written with them.
    bool IsOwn(std::size_t product) const;
    /// The same for a product by its name.
    bool IsOwn(const std::string& product) const { return product == host_->Controller().deviceName(); }
    /// The product of the current connector, counted from 0.
    std::size_t Product() const { return product_; }
    std::uint16_t Connector() const { return connector_; }

    /// Address of the signal processor that serves a register of the current connector; kNoAspi when there is none.
    std::int16_t Aspi(const RegisterObject& target) const { return AspiAt(target, connector_); }
    /// The same; none also while the current connector is one of another product's boards.
    std::optional<std::int16_t> OwnAspi(const RegisterObject& target) const;
    /// The address for any connector.
    std::int16_t AspiAt(const RegisterObject& target, std::uint16_t connector) const;

private:
    IWizardHost* host_ = nullptr;
    std::shared_ptr<Enclosure> enclosure_;
    std::size_t product_ = 0;
    std::uint16_t connector_ = kNoConnector;
};

}
