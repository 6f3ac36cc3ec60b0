// SPDX-License-Identifier: Apache-2.0
// Events for people: texts of files, applications and drivers are made visible before a printer lays them
// out.
#pragma once

#include "host/Events.h"

namespace qzcam {

Event visible(Event event);

}  // namespace qzcam
