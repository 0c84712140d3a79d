# SPDX-License-Identifier: Apache-2.0
# What a user would pick instead. GLM and Eigen always; VTK and OpenSceneGraph where they are.
find_package(glm REQUIRED)
find_package(Eigen3 REQUIRED NO_MODULE)
find_package(VTK QUIET COMPONENTS RenderingCore RenderingOpenGL2)
find_package(OpenSceneGraph QUIET COMPONENTS osg osgGA osgUtil)

# Peers' headers are not ours to warn about.
function(camera_bench_peer source)
  target_sources(camera_bench PRIVATE ${source})
  target_link_libraries(camera_bench PRIVATE ${ARGN})
endfunction()

camera_bench_peer(PeerGlm.cpp glm::glm)
camera_bench_peer(PeerEigen.cpp Eigen3::Eigen)
if(VTK_FOUND)
  camera_bench_peer(PeerVtk.cpp ${VTK_LIBRARIES})
  target_compile_definitions(camera_bench PRIVATE CAMERA_BENCH_VTK)
  vtk_module_autoinit(TARGETS camera_bench MODULES ${VTK_LIBRARIES})
endif()
if(OPENSCENEGRAPH_FOUND)
  camera_bench_peer(PeerOpenSceneGraph.cpp ${OPENSCENEGRAPH_LIBRARIES})
  target_compile_definitions(camera_bench PRIVATE CAMERA_BENCH_OPENSCENEGRAPH)
  target_include_directories(camera_bench SYSTEM PRIVATE ${OPENSCENEGRAPH_INCLUDE_DIRS})
endif()
