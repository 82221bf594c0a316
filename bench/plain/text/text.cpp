// A text that is not shared has no storage to let go of; this takes the place of what does.
#include "text/text.h"
