#include "link/flood_lock.h"
#include "support/fake_clock.h"
#include "support/fake_prompts.h"
#include "support/text.h"

#include <gtest/gtest.h>

namespace {

struct Flood : testing::Test
{
    FakeClock clock;
    FakePrompts prompts;
    FloodLock lock{clock, prompts};
};

TEST_F(Flood, TheThirdMessageWithinTwoSecondsWaitsForFive)
{
    lock.admit();
    clock.advance(1000);
    lock.admit();
    clock.advance(999);
    EXPECT_TRUE(prompts.boxes.isEmpty());
    lock.admit();
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(prompts.boxes[0],
              (FakePrompts::Box{u"Lock up"_s, u"Please don't spam, chat will lock for 5 seconds!"_s,
                                PromptIcon::Information}));
    EXPECT_EQ(clock.blocked, 5000);

    lock.admit(); // the count begins anew, with the delayed message as its first
    EXPECT_EQ(clock.blocked, 5000);
    lock.admit();
    EXPECT_EQ(clock.blocked, 10'000);
}

TEST_F(Flood, TwoSecondsAfterTheFirstTheCountBeginsAnew)
{
    for (int message = 0; message < 10; ++message) {
        lock.admit();
        clock.advance(1000);
    }
    EXPECT_TRUE(prompts.boxes.isEmpty());
}

TEST_F(Flood, AMessageSentWhileTheBoxStandsDoesNotHang)
{
    prompts.whileOpen = [this] { lock.admit(); };
    for (int message = 0; message < 3; ++message) {
        lock.admit();
    }
    EXPECT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(clock.blocked, 5000);
}

} // namespace
