#pragma once

/// Marks what the DLL exports. A build of the library (and unit tests that link its objects) defines
/// MOSSHARBOUR_BUILDING; everybody else imports.
#if defined(MOSSHARBOUR_BUILDING)
#define MOSSHARBOUR_API __declspec(dllexport)
#else
#define MOSSHARBOUR_API __declspec(dllimport)
#endif
