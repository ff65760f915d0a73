#pragma once

#include "platform/addresses.h"

/// Opens nothing, and keeps what was to be opened.
class FakeAddresses final : public Addresses
{
public:
    bool open(const QUrl &address) override
    {
        last = address;
        return true;
    }

    QUrl last;
};
