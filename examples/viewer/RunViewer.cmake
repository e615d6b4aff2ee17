# Draws a scan with the viewer on a display in memory, and compares with what the program draws without OpenGL.
find_program(XVFB_RUN xvfb-run)
if(NOT XVFB_RUN)
  message(STATUS "skipped: there is no xvfb-run")
  return()
endif()

set(ENV{QT_QPA_PLATFORM} xcb)
set(ENV{LIBGL_ALWAYS_SOFTWARE} 1)
file(REMOVE "${SCRATCH}/viewer.png")
execute_process(COMMAND "${XVFB_RUN}" -a -s "-screen 0 1024x768x24" "${VIEWER}" "${SCAN}" --picture "${SCRATCH}/viewer.png"
  OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE result)
message(STATUS "${output}${errors}")
if(errors MATCHES "could not connect to display|no Qt platform plugin|Xvfb failed to start")
  message(STATUS "skipped: there is no display to be had")
  return()
endif()
if(output MATCHES "skipped: ")
  return()
endif()
if(NOT result EQUAL 0 OR NOT output MATCHES "^5000 triangles\n" OR NOT output MATCHES "tag [0-9]+\\.[0-9]+: ")
  message(FATAL_ERROR "the viewer failed: ${result}")
endif()

execute_process(COMMAND "${PROGRAM}" preview "${SCAN}" --view iso --size 480 --force -o "${SCRATCH}/preview.png"
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${COMPARE}" "${SCRATCH}/viewer.png" "${SCRATCH}/preview.png" COMMAND_ERROR_IS_FATAL ANY)
