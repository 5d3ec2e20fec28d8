#include "common/FileBytes.h"
#include "common/ServicesFixture.h"

#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "support/ErrorTail.h"
#include "support/modErrorHandler.h"

#include <tuple>

namespace corvane {
namespace {

using test::ServicesTest;

class modErrorHandlerTest : public ServicesTest {
protected:
    void SetUp() override {
        ServicesTest::SetUp();
        gAppDataPath = environment.appDataFolder;
    }
    static std::string ReadLog() { return test::FileBytes(GetErrorLogPath()); }
    static ErrorInfo Err(int number, std::string description = "Boom") {
        return {number, std::move(description), "Corvane", 0};
    }
};

TEST_F(modErrorHandlerTest, ClassifiesNumbersIntoTheirTexts) {
    // clang-format off
    const std::tuple<const char*, ErrorInfo, const char*> cases[] = {
        {"reading", Err(9), "A process error has occurred reading."},
        {"reading", Err(6), "A mathematical error has occurred reading."},
        {"reading", Err(7), "A system error has occurred reading."},
        {"reading", Err(48), "A DLL library error has occurred reading."},
        {"reading", Err(52), "The file name is invalid reading."},
        {"reading", Err(53), "File not found reading."},
        {"reading", Err(1234), "An error has occurred reading."},
        {"sending", Err(32003), "An email client error has occured. The error occurred while sending. Please "
                                "check your email settings."},
        {"sending", Err(32012), "An email attatchment error has occured. The error occurred while sending. "
                                "Please check email attachments."},
        {"printing", Err(482, "Printer error"), "The error:  Printer error\r\n\r\noccurred while printing. "
                                                "Please check your printer and try again."},
        {"choosing", Err(32755), ""}};
    // clang-format on
    for (const auto& [context, error, text] : cases) {
        EXPECT_EQ(ClassifiedErrorText(context, error), text) << error.number;
    }
}

TEST_F(modErrorHandlerTest, DialogPathLogsAndReportsAndReturnsTheDialogAnswer) {
    prompts.Expect(Answer::Retry);
    EXPECT_EQ(HandleError("calculating the pitch", Err(11, "Division by zero"), false, true), Answer::Retry);

    ASSERT_EQ(prompts.History().size(), 1u);
    const auto& shown = prompts.History()[0];
    EXPECT_EQ(shown.style, 2); // no e-mail, abort shown
    EXPECT_EQ(shown.text,
              "A mathematical error has occurred calculating the pitch.\r\n\r\nCorvane 1.00.0000\r\n"
              "Error number: 11\r\nDescription: Division by zero\r\nSource: Corvane\r\n"
              "Last DLL err: 0\r\n");
    EXPECT_EQ(ReadLog(),
              "Nov 22 2026, 09:05:07, 11, Division by zero, Corvane, 0, calculating the pitch\r\n");
    EXPECT_EQ(GetErrorLogPath(), environment.appDataFolder + "corvaneError.log");

    // OK without the abort tick is Ignore; a closed window is Ignore too.
    prompts.Expect(Answer::Ignore);
    EXPECT_EQ(HandleError("x", Err(9)), Answer::Ignore);
    prompts.Expect(0);
    EXPECT_EQ(HandleError("x", Err(9)), Answer::Ignore);
    EXPECT_EQ(events.endRequests, 0);

    // Abort ends the program.
    prompts.Expect(Answer::Abort);
    EXPECT_EQ(HandleError("x", Err(9)), Answer::Abort);
    EXPECT_EQ(events.endRequests, 1);
}

TEST_F(modErrorHandlerTest, SilentNumbersNeitherLogNorShow) {
    EXPECT_EQ(HandleError("choosing a file", Err(32755)), Answer::Ignore);
    EXPECT_EQ(HandleError("opening mail", Err(32001)), Answer::Ignore);
    EXPECT_TRUE(prompts.History().empty());
    EXPECT_FALSE(std::filesystem::exists(GetErrorLogPath()));
}

TEST_F(modErrorHandlerTest, RetryBoxesComeBeforeTheReport) {
    prompts.Expect(Answer::Retry, "File already in use. Close the file and retry the operation.");
    prompts.Expect(Answer::Ignore);
    EXPECT_EQ(HandleError("saving", Err(70)), Answer::Ignore);
    EXPECT_EQ(prompts.History()[1].kind, ScriptedPrompts::Kind::CriticalError);

    // Disk not ready: only the box, its answer returned, nothing logged.
    prompts.Clear();
    std::filesystem::remove(GetErrorLogPath());
    prompts.Expect(Answer::Retry, "Disk not ready.");
    EXPECT_EQ(HandleError("saving", Err(71)), Answer::Retry);
    prompts.Expect(Answer::Cancel, "Disk not ready.");
    EXPECT_EQ(HandleError("saving", Err(71)), Answer::Ignore);
    EXPECT_FALSE(std::filesystem::exists(GetErrorLogPath()));

    // Database errors carry their own title.
    prompts.Clear();
    prompts.Expect(Answer::Cancel, "The database table could not be opened or modified because the error:");
    prompts.Expect(Answer::Ignore);
    HandleError("opening the table", Err(3021, "No current record"));
    EXPECT_EQ(prompts.History()[0].title, "Corvane database error");
    EXPECT_NE(
        prompts.History()[0].text.find("No current record  (Err. #: 3021)\r\n\r\noccured while opening the "
                                       "table. This generally means"),
        std::string::npos);
}

// A prompt service whose error dialog raises another error while it is open.
class ReenteringPrompts : public ScriptedPrompts {
public:
    int innerAnswer = 0;
    int dialogs = 0;
    int ShowCriticalError(const std::string& report, bool e, bool a) override {
        ++dialogs;
        innerAnswer = HandleError("drawing the dialog", ErrorInfo{9, "Subscript out of range", "Corvane", 0});
        return ScriptedPrompts::ShowCriticalError(report, e, a);
    }
};

TEST_F(modErrorHandlerTest, NoSecondDialogWhileOneIsOpen) {
    ReenteringPrompts reentering;
    ServiceScope scope(Services{&reentering, &settings, &clock, &environment, &events, &sound});
    reentering.Expect(Answer::Ignore);
    EXPECT_EQ(HandleError("x", Err(13)), Answer::Ignore);
    EXPECT_EQ(reentering.dialogs, 1);
    EXPECT_EQ(reentering.innerAnswer, Answer::Ignore);
    EXPECT_FALSE(CriticalErrorShowing());
}

TEST_F(modErrorHandlerTest, ReadOnlyLogIsReportedOnceAndTheDialogStillComes) {
    std::filesystem::create_directories(environment.appDataFolder);
    test::WriteBytes(GetErrorLogPath(), "old\r\n");
    std::filesystem::permissions(GetErrorLogPath(), std::filesystem::perms::owner_read |
                                                        std::filesystem::perms::group_read |
                                                        std::filesystem::perms::others_read);
    prompts.Expect(Answer::OK,
                   "The log could not be written to [" + GetErrorLogPath() + "]. The log file is Read-only.");
    prompts.Expect(Answer::Ignore);
    prompts.Expect(Answer::Ignore);
    HandleError("a", Err(9));
    HandleError("b", Err(9));
    EXPECT_EQ(prompts.History()[0].title, "Logging Error");
    EXPECT_EQ(ReadLog(), "old\r\n");
}

TEST_F(modErrorHandlerTest, StandardExceptionsMapOntoErrorNumbers) {
    auto numberOf = [](auto exception) { return ErrorInfoFrom(std::make_exception_ptr(exception)).number; };
    EXPECT_EQ(numberOf(CorvaneError(75, "Path/File access error")), 75);
    EXPECT_EQ(numberOf(std::out_of_range("index")), 9);
    EXPECT_EQ(numberOf(std::overflow_error("big")), 6);
    EXPECT_EQ(numberOf(std::bad_alloc()), 7);
    EXPECT_EQ(numberOf(std::filesystem::filesystem_error(
                  "open", std::make_error_code(std::errc::no_such_file_or_directory))),
              53);
    EXPECT_EQ(numberOf(std::runtime_error("odd")), 51);
    EXPECT_EQ(numberOf(42), 51);
}

TEST_F(modErrorHandlerTest, ErrorTailRetriesIgnoresAndStopsOnAbort) {
    int attempts = 0;
    int later = 0;
    prompts.Expect(Answer::Retry);
    prompts.Expect(Answer::Ignore);
    ErrorTail tail("testing");
    EXPECT_FALSE(tail.Step([&] {
        ++attempts;
        throw CorvaneError(9, "Subscript out of range");
    }));
    EXPECT_EQ(attempts, 2); // ran again after Retry, then ignored
    EXPECT_TRUE(tail.Step([&] { ++later; }));
    EXPECT_EQ(later, 1);
    EXPECT_TRUE(tail.Failed());

    prompts.Expect(Answer::Abort);
    ErrorTail aborting("testing");
    aborting.Step([] { throw std::out_of_range("x"); });
    EXPECT_FALSE(aborting.Step([&] { ++later; }));
    EXPECT_EQ(later, 1);
    EXPECT_TRUE(aborting.Aborted());
}

} // namespace
} // namespace corvane
