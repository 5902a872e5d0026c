// SPDX-License-Identifier: MIT
#pragma once

/// ORVANE_WINDOW_API marks what the window library exports. Define ORVANE_WINDOW_BUILD while building it.
#if defined(_WIN32)
#if defined(ORVANE_WINDOW_BUILD)
#define ORVANE_WINDOW_API __declspec(dllexport)
#else
#define ORVANE_WINDOW_API __declspec(dllimport)
#endif
#else
#define ORVANE_WINDOW_API __attribute__((visibility("default")))
#endif
