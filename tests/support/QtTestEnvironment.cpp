// One QApplication for a whole test program, on the offscreen platform unless
// the environment names another.

#include <memory>

#include <QApplication>
#include <gtest/gtest.h>

namespace {

class QtTestEnvironment : public ::testing::Environment {
  public:
    void SetUp() override {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
            qputenv("QT_QPA_PLATFORM", "offscreen");
        }
        if (QCoreApplication::instance() == nullptr) {
            app = std::make_unique<QApplication>(argc, argv);
        }
    }
    void TearDown() override { app.reset(); }

  private:
    // QApplication keeps references to both for its whole life.
    int argc = 1;
    char name[12] = "zonara_test";
    char* argv[2] = {name, nullptr};
    std::unique_ptr<QApplication> app;
};

// GoogleTest takes ownership of the environment.
const ::testing::Environment* const environment =
    ::testing::AddGlobalTestEnvironment(new QtTestEnvironment);

} // namespace
