// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <qel/api/camera/CameraAPIIf.h>

#include "bench/Workload.h"

namespace qel::bench {

// Each registers its benchmarks under a name of two or more parts, by which the report pairs them:
//
//   operation/<name>           a warm result: the record holds the result of the same operation already
//   fresh/<name>               a new result record for each call
//   threads/<name>             by one thread, then by two, each with records of its own
//   threads/control: <what>    the same for a loop that touches nothing of the component, see Controls.cpp
//   impl/<name>                the same on an object, without records, see ImplAlone.cpp
//   peer/<library>/<task>      what a user would pick instead
//   wire/<protocol>/<direction>/<whose>

void registerOperations(api::camera::CameraAPIIf& camera, const Workload& workload);
void registerControls();
void registerImpl(api::camera::CameraAPIIf& service, const Workload& workload);
void registerWire(const Workload& workload);

void registerGlm();
void registerEigen();
void registerVtk();
void registerOpenSceneGraph();

} // namespace qel::bench
