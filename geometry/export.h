// SPDX-License-Identifier: MIT
#pragma once

/// CARDTABLE_API marks what the library exports. Define CARDTABLE_BUILD while building the library, CARDTABLE_STATIC
/// when its sources are linked straight into a program.
#if defined(_WIN32) && !defined(CARDTABLE_STATIC)
#if defined(CARDTABLE_BUILD)
#define CARDTABLE_API __declspec(dllexport)
#else
#define CARDTABLE_API __declspec(dllimport)
#endif
#elif defined(_WIN32)
#define CARDTABLE_API
#else
#define CARDTABLE_API __attribute__((visibility("default")))
#endif
