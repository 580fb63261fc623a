#pragma once

#include "base/ProgramState.h"
#include "config/TarvexData.h"
#include "shell/UnitTestCases.h"

namespace tarvex {

/// Tests the model of init and data files on the init file beside the program: opening it, writing a data file of one
/// of its products, and what it says of its products.
class TarvexData_UT : public UnitTestCases {
public:
    TarvexData_UT(const ProgramState& state, const FailureFile& failures);

private:
    std::vector<Case> Cases() override;

    void TestReadConstructor();
    void TestWriteConstructor();
    void TestProductList();
    void TestGetSupportedCommList();
    void TestGetProductByBoardID();

    /// Opens the init file, and logs when that fails.
    void OpenInitFile(TarvexData& model);
    /// Saves the data file beside the program, or in the temporary folder where that cannot be written. Its path.
    std::string Commit(TarvexData& model);
    std::string TemporaryDataFile() const;

    const ProgramState& state_;
    IFileSystem& files_;
    IClock& clock_;
    std::string initFile_;
    std::string dataFile_;
};

}
