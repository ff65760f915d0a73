#pragma once

#include <QString>

#include <stdexcept>

/// A skin that cannot be used. The text says which file, where in it, and why; it is meant for people.
class SkinError : public std::runtime_error
{
public:
    explicit SkinError(const QString &reason) : std::runtime_error(reason.toStdString()) {}
    /// "file: place: why", without the place where it is empty.
    SkinError(const QString &file, const QString &place, const QString &why)
        : SkinError(QString(file + (place.isEmpty() ? QString() : QString(u": " + place)) + u": " + why))
    {}

    [[nodiscard]] QString reason() const { return QString::fromUtf8(what()); }
};
