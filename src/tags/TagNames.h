// The vendor's two sections, spelled once. Macros, because only literals join without a copy at run time.
#pragma once

#define CAPTURE(name) "com.ambrix.capture.metadata." name        // requests and results
#define CAPABILITY(name) "com.ambrix.device.capabilities." name  // static characteristics
