#pragma once

#include "base/Clock.h"
#include "base/Object.h"
#include "base/TaggedValue.h"
#include "data/StorageLocation.h"

#include <memory>
#include <optional>
#include <string>

namespace quellbrook {

struct FinalDispositionData {
    int32_t FinalDisposition = 0;  // code of the final disposition status
    std::string Notes;
};

// The details of one batch. Each field is empty or null until set.
class TransferData : public Object {
public:
    std::string TypeName() const override { return "TransferData"; }

    StorageLocationRef Location;
    // The category under which Location was chosen. Not set: its own.
    std::optional<StorageLocationTypes> LocationType;
    TaggedValue ReceivedBy;
    TaggedValue ReceivedFrom;
    TaggedValue DateReceived;
    TaggedValue Reason;
    std::shared_ptr<FinalDispositionData> FinalDisposition;

    // The moment of this object's construction.
    DateTime Timestamp() const { return m_timestamp; }

private:
    DateTime m_timestamp = GetClock().Now();
};

}  // namespace quellbrook
