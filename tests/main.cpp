// Runs every test in one process, with one application object on the offscreen platform.
#include "acquisition/DataSource.h"
#include "platform/Clock.h"
#include "platform/Folders.h"
#include "platform/Notices.h"
#include "platform/Prompts.h"
#include "platform/QtPlainTexts.h"
#include "platform/Scratch.h"
#include "platform/WholeFile.h"
#include "variables/GlobalVarsAndTypes.h"

#include <QApplication>

#include <cstdio>
#include <gtest/gtest.h>

namespace {

/// Every test starts from the state before start-up.
class FreshGlobals final : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        vistor::CloseDataSource();
        vistor::setClock({});
        vistor::setPrompter(nullptr);
        vistor::setProgramFolder({});
        vistor::deleteScratchFolder();
        vistor::setNoticeListener({});
        vistor::clearNotices();
        vistor::failFileCall(0);
        vistor::ResetGlobals();
    }
};

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    vistor::keepTextsPlain();
    testing::UnitTest::GetInstance()->listeners().Append(new FreshGlobals);
    const int failed = RUN_ALL_TESTS();
    const auto* run = testing::UnitTest::GetInstance();
    std::fflush(stderr);
    std::printf("%d passed, %d failed\n", run->successful_test_count(), run->failed_test_count());
    return failed;
}
