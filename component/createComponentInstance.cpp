// SPDX-License-Identifier: Apache-2.0
#include <new>

#include <qel/api/base/BaseAPIIf.h>

#include "component/CameraLibraryHandler.h"

extern "C" __attribute__((visibility("default"))) qel::api::base::BaseAPIIf* createComponentInstance() {
    return new (std::nothrow) qel::api::camera::CameraLibraryHandler;
}
