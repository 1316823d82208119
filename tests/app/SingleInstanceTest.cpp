#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QUuid>

#include "app/SingleInstance.h"

namespace zonara {

TEST(SingleInstance, SecondStartRaisesTheFirstAndAStaleSocketKeepsNobodyOut) {
    const QString title =
        QStringLiteral("ZonaraTest-") + QUuid::createUuid().toString(QUuid::Id128);
    int raised = 0;
    {
        SingleInstance first(title);
        first.onRaiseRequest([&] { ++raised; });
        ASSERT_EQ(first.claim(), SingleInstance::Outcome::FirstInstance);
        SingleInstance second(title);
        EXPECT_EQ(second.claim(), SingleInstance::Outcome::OtherInstanceRaised);
        QElapsedTimer waited;
        waited.start();
        while (raised == 0 && waited.elapsed() < 5000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        EXPECT_EQ(raised, 1);
    } // the first one's server closes: the name is free again
    SingleInstance next(title);
    EXPECT_EQ(next.claim(), SingleInstance::Outcome::FirstInstance);
}

} // namespace zonara
