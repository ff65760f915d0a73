#include "link/flood_lock.h"
#include "support/fake_clock.h"
#include "support/fake_prompts.h"
#include "support/text.h"

namespace {

struct Flood : testing::Test
{
    FakeClock clock;
    FakePrompts prompts;
    FloodLock lock{clock, prompts};
};

TEST_F(Flood, TheThirdMessageWithinTwoSecondsWaitsForFive)
{
    prompts.whileOpen = [this] { lock.admit(); }; // a message that is sent while the box stands does not hang
    for (int message = 0; message < 10; ++message) { // two seconds after the first the count begins anew
        lock.admit();
        clock.advance(1000);
    }
    lock.admit();
    clock.advance(1000);
    lock.admit();
    clock.advance(999);
    EXPECT_TRUE(prompts.boxes.isEmpty());
    lock.admit();
    EXPECT_EQ(prompts.boxes,
              QStringList{u"Information: Lock up: Please don't spam, chat will lock for 5 seconds!"_s});
    EXPECT_EQ(clock.blocked, 5000);

    lock.admit(); // the count begins anew, with the delayed message as its first
    EXPECT_EQ(clock.blocked, 5000);
    lock.admit();
    EXPECT_EQ(clock.blocked, 10'000);
}

} // namespace
