#pragma once

#include <boost/signals2/connection.hpp>
#include <boost/signals2/signal.hpp>

namespace quellbrook {

// An event of the model. A subscriber may disconnect while the event is being raised. Do not rely on the order of
// subscribers. Declare a Subscription as the last member, so that it is destroyed first.
template <typename... Arguments>
using Event = boost::signals2::signal<void(Arguments...)>;

using Subscription = boost::signals2::scoped_connection;

}  // namespace quellbrook
