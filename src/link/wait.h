#pragma once

#include <functional>

/// Lets events run until the condition holds. What it depends on changes only inside event handlers, so
/// between two looks at it the program sleeps until the next event. Any handler may run meanwhile, another
/// wait included; the inner one ends first. After a wait nothing is to be assumed: look members, room id and
/// windows up again.
void waitUntil(const std::function<bool()> &condition);
