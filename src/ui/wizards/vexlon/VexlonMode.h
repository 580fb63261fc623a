#pragma once

#include "ui/wizards/vexlon/VexlonBoard.h"
#include "ui/wizards/vexlon/VexlonTiming.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarvex {

/// Codes that bring the undo of the frame back here.
inline constexpr std::int32_t kUndoRefresh = -2;
inline constexpr std::int32_t kUndoResolution = -3;

/// The resolution of a board that is not known.
inline constexpr Resolution kNoResolution{0, 0};

/// What is known of a board's mode only because it was set here.
struct ModeChanges {
    std::int16_t refresh = kUnknownRefresh;
    Resolution previousResolution = kNoResolution;
    std::optional<std::int32_t> previousPll; ///< VCO and charge pump before the last change of the refresh rate
};

/// The input mode of the board, its resolution and refresh rate: sets, shows and undoes them. The wizard's product owns
/// it; each operation that sets something writes to the board.
class VexlonMode {
public:
    explicit VexlonMode(VexlonBoard& board) : board_(board) {}

    /// Programs the board for a resolution such as "1024x768"; asks for the refresh rate while that is unknown.
    void ChooseResolution(const std::string& text) { SetResolution(ParseResolution(text)); }
    /// Programs the PLL for a refresh rate such as "75".
    void ChooseRefresh(const std::string& text);
    /// Takes back the last change of a code.
    void Undo(std::int32_t code);
    /// The board has other settings than those made here, or is another one: what was changed is not undone there, and
    /// its refresh rate is not known.
    void ForgetChanges();
    /// The registers hold what the board has, but for these: shows the resolution. A board that was lost and has come
    /// back with another mode counts as another one.
    void BoardWasRead(const std::vector<std::string>& failed);

    /// Whether a register holds a part of the resolution.
    static bool IsPartOfResolution(const std::string& registerName);
    /// Takes the resolution from the registers as they stand, and shows it.
    void ReadBackResolution();

private:
    bool HasKeptMode(const std::vector<std::string>& failed) const;
    bool SetResolution(Resolution wanted);
    bool WriteResolution(Resolution wanted);
    void ProgramPll(std::int16_t refresh);
    bool IsInRange();
    bool WritePll(const char* source, std::int32_t value);
    std::optional<std::uint8_t> PllByteOrSayWhy(Resolution resolution, std::int16_t refresh);
    void UndoResolution();
    void UndoRefresh();
    void ShowResolution();
    void ShowRefresh();

    VexlonBoard& board_;
    Resolution resolution_;
    ModeChanges changes_;
};

}
