#pragma once

#include <boost/signals2/connection.hpp>
#include <boost/signals2/signal.hpp>

namespace quellbrook {

// An event of the model. A subscriber that leaves while the event is being raised is safely passed over; order among
// subscribers is no one's to rely on. Keep the Subscription as the last member, so that it goes first.
template <typename... Arguments>
using Event = boost::signals2::signal<void(Arguments...)>;

using Subscription = boost::signals2::scoped_connection;

}  // namespace quellbrook
