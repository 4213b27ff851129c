#pragma once

// The Java types the Android surfaces take. On Android they are the JNI
// types; elsewhere opaque stand-ins, so that the same signatures compile
// and a desktop host passes null.
#if defined(__ANDROID__)
#include <jni.h>
#else
struct _JNIEnv;
struct _JavaVM;
typedef _JNIEnv JNIEnv;
typedef _JavaVM JavaVM;
typedef void* jobject;
#endif
