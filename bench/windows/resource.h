#pragma once

// An icon of the tests, in the sizes 24 and 48.
#define IDI_24_48 301
