#pragma once

// Types and macros that every class of the API shares.

/// The release of the API that these headers follow: eight digits since 2018.
#define MAYA_API_VERSION 20200000
#define MAYA_APP_VERSION 2020

// The real host keeps its classes in a namespace per release; here they are global, and the macros that plug-ins put
// around forward declarations stand for nothing.
#define OPENMAYA_MAJOR_NAMESPACE_OPEN
#define OPENMAYA_MAJOR_NAMESPACE_CLOSE

/// Before initializePlugin and uninitializePlugin: the two functions that the host looks up in the library.
#if defined(_WIN32)
#define PLUGIN_EXPORT __declspec(dllexport)
#else
#define PLUGIN_EXPORT __attribute__((visibility("default")))
#endif

typedef long long MInt64;
typedef unsigned long long MUint64;

typedef short short2[2];
typedef short short3[3];
typedef int int2[2];
typedef int int3[3];
typedef long long2[2];
typedef long long3[3];
typedef float float2[2];
typedef float float3[3];
typedef double double2[2];
typedef double double3[3];
typedef double double4[4];
