#include "demo/sample/Chains.h"

#include "demo/sample/Codes.h"

#include <algorithm>

namespace quellbrook::sample {

namespace {

const std::vector<int32_t> patrol = {Officer::Whitfield, 108, 111};
const std::vector<int32_t> technicians = {Officer::Raman, Officer::Raman, 107, Officer::Oyelaran};
const std::vector<int32_t> detectives = {Officer::Kowalczyk, 106};
const std::vector<int32_t> analysts = {Officer::Brandt, 110};
const std::vector<int32_t> liaison = {113, Officer::Kowalczyk};
const std::vector<int32_t> prosecutors = {109};

struct Step {
    std::optional<int32_t> location;
    int32_t reason;
    int32_t receiver;
    int32_t longestWait;  // days since the previous step
};

constexpr int32_t soon = 3, sometime = 90;

class Itinerary {
public:
    Itinerary(Random& random, const LocationPurposes& purposes, const Fate& fate)
        : m_random(random), m_purposes(purposes), m_fate(fate) {
        ComeIn();
        for (int32_t k = 0; k < fate.journeys; ++k) {
            GoOut(0);
            ComeBack();
        }
        switch (fate.end) {
        case End::InStorage: break;
        case End::SignedOut: GoOut(fate.endLocation); break;
        case End::Disposed: Dispose(); break;
        case End::UnderReview: Add(random.Pick(purposes.review), Reason::MissingPaperwork, technicians); break;
        case End::NoLocation: Add(std::nullopt, Reason::CaseClosed, technicians); break;
        }
    }

    const std::vector<Step>& Steps() const { return m_steps; }

private:
    void Add(std::optional<int32_t> location, int32_t reason, const std::vector<int32_t>& receivers,
             int32_t longestWait = sometime) {
        m_steps.push_back({location, reason, m_random.Pick(receivers), longestWait});
    }

    void ComeIn() {
        if (m_fate.startsInReview) Add(m_random.Pick(m_purposes.review), Reason::CollectedAtScene, patrol, soon);
        const bool stays = std::count(m_purposes.intake.begin(), m_purposes.intake.end(), m_fate.home) > 0;
        const int32_t first = stays ? m_fate.home : m_random.Pick(m_purposes.intake);
        Add(first, Reason::InitialStorage, technicians, soon);
        if (!stays) Add(m_fate.home, Reason::Reorganization, technicians, soon);
    }

    void GoOut(int32_t location) {
        struct Purpose {
            const std::vector<int32_t>& locations;
            int32_t reason;
            int32_t back;
            const std::vector<int32_t>& receivers;
        };
        const Purpose purposes[] = {
            {m_purposes.labs, Reason::LaboratoryAnalysis, Reason::ReturnedFromAnalysis, analysts},
            {m_purposes.courts, Reason::CourtPresentation, Reason::ReturnedFromCourt, liaison},
            {m_purposes.officers, Reason::OfficerReview, Reason::ReturnedFromReview, detectives},
            {m_purposes.prosecutors, Reason::ProsecutorReview, Reason::ReturnedFromReview, prosecutors},
        };
        const int32_t drawn = m_random.Below(100);
        const Purpose* purpose = &purposes[drawn < 55 ? 0 : drawn < 80 ? 1 : drawn < 93 ? 2 : 3];
        for (const Purpose& candidate : purposes) {
            if (location > 0 && std::count(candidate.locations.begin(), candidate.locations.end(), location) > 0) {
                purpose = &candidate;
                break;
            }
        }
        Add(location > 0 ? location : m_random.Pick(purpose->locations), purpose->reason, purpose->receivers);
        m_reasonBack = purpose->back;
    }

    void ComeBack() { Add(m_fate.home, m_reasonBack, technicians); }

    void Dispose() {
        const int32_t location = m_fate.endLocation > 0 ? m_fate.endLocation : m_random.Pick(m_purposes.disposal);
        Add(location, m_random.Chance(60) ? Reason::CaseClosed : Reason::CourtOrder, technicians);
    }

    Random& m_random;
    const LocationPurposes& m_purposes;
    const Fate& m_fate;
    std::vector<Step> m_steps;
    int32_t m_reasonBack = 0;
};

// A time of the working day, in whole minutes.
int64_t TimeOfDay(Random& random) { return random.Between(7 * 60, 18 * 60 - 1) * 60'000ll; }

}  // namespace

std::vector<Custody> MakeChain(Random& random, const LocationPurposes& purposes, const Fate& fate) {
    const Itinerary itinerary(random, purposes, fate);
    const auto steps = static_cast<int32_t>(itinerary.Steps().size());
    std::vector<Custody> chain;
    chain.reserve(static_cast<size_t>(steps));
    int32_t day = fate.day;
    int32_t holder = random.Pick(patrol);
    for (int32_t k = 0; k < steps; ++k) {
        const Step& step = itinerary.Steps()[static_cast<size_t>(k)];
        if (k > 0) day += random.Between(1, std::clamp((DayCount - 1 - day) / (steps - k), 1, step.longestWait));
        Custody custody;
        custody.received.milliseconds = FirstDay.milliseconds + day * DayLength + TimeOfDay(random);
        custody.written.milliseconds = custody.received.milliseconds + random.Between(20'000, 1'200'000);
        if (!random.Chance(3)) custody.receivedFrom = holder;
        if (!random.Chance(3)) custody.receivedBy = step.receiver;
        custody.reason = step.reason;
        custody.location = step.location;
        holder = step.receiver;
        chain.push_back(custody);
    }
    return chain;
}

}  // namespace quellbrook::sample
