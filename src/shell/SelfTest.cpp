#include "shell/SelfTest.h"

#include "base/Error.h"
#include "shell/Bitset_UT.h"
#include "shell/I2CPacket_UT.h"
#include "shell/TarvexData_UT.h"

#include <array>
#include <memory>

namespace tarvex {

namespace {

constexpr std::int32_t kErrReport = ObjectError(1);

std::unique_ptr<ITextStream> OpenReport(const std::string& path, const SelfTestServices& services)
{
    auto report = services.files.OpenText(path, OpenMode::Overwrite);
    if (!report) {
        services.errorLog.LogError("Unable to write the report " + path, kErrReport, "RunSelfTest");
        return nullptr;
    }
    report->WriteLine(path + " " + services.clock.NowText());
    report->WriteLine("");
    return report;
}

std::int32_t RunTests(UT_Output& output, const ProgramState& state, const FailureFile& failures)
{
    const std::array<std::unique_ptr<UT_Test>, 3> tests{std::make_unique<I2CPacket_UT>(failures),
                                                        std::make_unique<Bitset_UT>(failures),
                                                        std::make_unique<TarvexData_UT>(state, failures)};
    std::int32_t count = 0;
    for (const auto& test : tests) {
        test->InitOutput(output);
        count += test->TestCount();
    }
    output.SetProgressRange(count);
    std::int32_t errors = 0;
    for (const auto& test : tests) {
        test->Run();
        errors += test->ErrorCount();
    }
    return errors;
}

}

void RunSelfTest(const std::string& reportFile, UT_Output& output, const SelfTestServices& services)
{
    const FailureFile failures{services.files, services.clock, services.state.rootFolder + "/UT_Failures.txt"};
    const auto report = OpenReport(reportFile, services);
    if (report)
        output.SetFileLink(reportFile);
    output.AddReportLine("Beginning Unit tests");
    output.AddReportLine(" ");
    const std::int32_t errors = RunTests(output, services.state, failures);
    output.AddReportLine(" ");
    output.AddReportLine(errors == 0 ? "Unit Test Complete, no failures"
                                     : "!!!!!! Unit Test FAILURES, see " + reportFile + " for results");
    if (report && errors > 0)
        report->WriteLine("Failures: " + std::to_string(errors) + ", listed in " + failures.path);
}

}
