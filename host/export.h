// SPDX-License-Identifier: MIT
#pragma once

/// ORVANE_API marks what the host exports. Define ORVANE_BUILD while building the host itself, ORVANE_STATIC when it
/// is linked into the program instead of being a library of its own.
#if defined(_WIN32) && !defined(ORVANE_STATIC)
#if defined(ORVANE_BUILD)
#define ORVANE_API __declspec(dllexport)
#else
#define ORVANE_API __declspec(dllimport)
#endif
#elif defined(_WIN32)
#define ORVANE_API
#else
#define ORVANE_API __attribute__((visibility("default")))
#endif
