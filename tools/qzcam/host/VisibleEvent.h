// SPDX-License-Identifier: Apache-2.0
// Makes the texts of events visible for people: the texts of files, applications and drivers are escaped
// before a printer arranges them.
#pragma once

#include "host/Events.h"

namespace qzcam {

Event visible(Event event);

}  // namespace qzcam
