#pragma once

#include <QStringView>

#include <span>

/// What guests are called and what they say. "%1" stands for the name of the one they talk to.
namespace messenger::lines {

[[nodiscard]] std::span<const QStringView> names();
[[nodiscard]] std::span<const QStringView> chatter();
[[nodiscard]] std::span<const QStringView> greetings();
[[nodiscard]] std::span<const QStringView> answers();
[[nodiscard]] std::span<const QStringView> whispers();
[[nodiscard]] std::span<const QStringView> arrivals();

/// Emotions, where "%U%" and "%O%" stand for the sender and for the other.
[[nodiscard]] std::span<const QStringView> emotionsForRoom();
[[nodiscard]] std::span<const QStringView> emotionsForUser();

} // namespace messenger::lines
