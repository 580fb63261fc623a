#include "shell/TarvexData_UT.h"

#include "base/Error.h"
#include "base/Numbers.h"
#include "config/InitFileQueries.h"

#include <memory>

namespace tarvex {

namespace {

constexpr const char* kProduct = "Cendra";

struct Board {
    std::int32_t id;
    const char* product;
};

constexpr Board kBoards[] = {{0xC4A0, "Cendra"}, {0xC4A1, "Cendra"}, {0xC4A2, "Cendra"}, {0xC4A3, "Cendra"},
                             {0xC4A4, "Cendra"}, {0xC4B0, "Cendra"}, {0xC4B1, "Cendra"}, {0xC4B2, "Cendra"},
                             {0xC020, "Ossary"}, {0xC0A0, "Ossary"}};

}

TarvexData_UT::TarvexData_UT(const ProgramState& state, const FailureFile& failures)
    : UnitTestCases("TarvexData_UT", "TarvexData Unit Test", 5, failures), state_(state), files_(failures.files),
      clock_(failures.clock), initFile_(files_.FindOwnFile(state.programFolder + "/Tarvex.xml")),
      dataFile_(state.programFolder + "/TarvexData_UT_data.xml")
{}

std::vector<UnitTestCases::Case> TarvexData_UT::Cases()
{
    return {{"TestReadConstructor", [this] { TestReadConstructor(); }},
            {"TestWriteConstructor", [this] { TestWriteConstructor(); }},
            {"TestProductList", [this] { TestProductList(); }},
            {"TestGetSupportedCommList", [this] { TestGetSupportedCommList(); }},
            {"TestGetProductByBoardID", [this] { TestGetProductByBoardID(); }}};
}

void TarvexData_UT::TestReadConstructor()
{
    TarvexData model(state_, files_);
    CheckFalse(model.IsInitialized(), "new object should not be initialized");
    const bool opened = model.InitToRead(initFile_);
    CheckTrue(opened && FindProduct(model.Tree()->Root(), kProduct),
              "failed to open Tarvex.xml for read product Cendra");
    CheckTrue(model.IsInitialized(), "new object should be initialized");
    CheckTrue(model.IsInitialized() && model.Path() == initFile_, "path incorrect to read file");
}

void TarvexData_UT::TestWriteConstructor()
{
    TarvexData initFile(state_, files_);
    OpenInitFile(initFile);
    TarvexData model(state_, files_);
    CheckFalse(model.IsInitialized(), "new object should not be initialized");
    const bool begun = model.InitToWrite(initFile, dataFile_, clock_);
    CheckTrue(model.IsInitialized(), "new object should be initialized");
    model.AddProduct(initFile, kProduct);
    const std::string written = Commit(model);
    CheckTrue(begun && initFile.CheckForProduct(written, kProduct),
              "failed to open Tarvex.xml for write product Cendra");
    CheckTrue(model.Path() == written, "path incorrect to write file");
    if (written != dataFile_)
        files_.Remove(written);
}

void TarvexData_UT::TestProductList()
{
    TarvexData model(state_, files_);
    OpenInitFile(model);
    CheckTrue(model.ProductNameList().size() > 1, "product count should be > 1");
}

void TarvexData_UT::TestGetSupportedCommList()
{
    TarvexData model(state_, files_);
    OpenInitFile(model);
    CheckTrue(!model.SupportedCommList(kProduct).empty(), "failed to get comm links for product Cendra");
}

void TarvexData_UT::TestGetProductByBoardID()
{
    TarvexData model(state_, files_);
    OpenInitFile(model);
    for (const Board& board : kBoards) {
        const std::shared_ptr<IProduct> product = model.GetProduct(board.id, 0);
        CheckTrue(product && product->Name() == board.product,
                  "failed to get " + std::string(board.product) + " product(0x" + ToHex(board.id) + ")");
    }
}

void TarvexData_UT::OpenInitFile(TarvexData& model)
{
    CheckTrue(model.InitToRead(initFile_), "init file could not be initialized");
}

std::string TarvexData_UT::Commit(TarvexData& model)
{
    try {
        model.Commit(dataFile_);
        return dataFile_;
    } catch (const Error&) {
        std::string elsewhere = TemporaryDataFile();
        model.Commit(elsewhere);
        return elsewhere;
    }
}

std::string TarvexData_UT::TemporaryDataFile() const
{
    return files_.TemporaryFolder() + "/TarvexData_UT_data" + std::to_string(state_.instanceHandle) + ".xml";
}

}
