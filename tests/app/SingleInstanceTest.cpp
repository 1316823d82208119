#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QUuid>

#include "app/SingleInstance.h"

namespace zonara {

TEST(SingleInstance, SecondStartRaisesTheFirstAndEnds) {
    const QString title =
        QStringLiteral("ZonaraTest-") + QUuid::createUuid().toString(QUuid::Id128);
    SingleInstance first(title);
    int raised = 0;
    first.onRaiseRequest([&] { ++raised; });
    ASSERT_EQ(first.claim(), SingleInstance::Outcome::FirstInstance);

    SingleInstance second(title);
    EXPECT_EQ(second.claim(), SingleInstance::Outcome::OtherInstanceRaised);
    QElapsedTimer waited;
    waited.start();
    while (raised == 0 && waited.elapsed() < 5000) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    }
    EXPECT_EQ(raised, 1);
}

TEST(SingleInstance, AStaleSocketDoesNotKeepANewStartOut) {
    const QString title =
        QStringLiteral("ZonaraTest-") + QUuid::createUuid().toString(QUuid::Id128);
    {
        SingleInstance gone(title);
        ASSERT_EQ(gone.claim(), SingleInstance::Outcome::FirstInstance);
    } // its server closes: the name is free again
    SingleInstance next(title);
    EXPECT_EQ(next.claim(), SingleInstance::Outcome::FirstInstance);
}

} // namespace zonara
