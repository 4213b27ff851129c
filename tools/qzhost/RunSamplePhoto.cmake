# Runs qzhost on the sample photo into a fresh folder and checks that it
# succeeded and wrote the frame it announced.
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
execute_process(
  COMMAND ${QZHOST} --quiet --assets ${SOURCE_DIR}/assets
          --effect ${SOURCE_DIR}/samples/packages/timeout
          --out ${WORK_DIR} ${SOURCE_DIR}/samples/photos/astronaut.png
  RESULT_VARIABLE status
  OUTPUT_VARIABLE out
  ERROR_VARIABLE err)
message("${out}${err}")
if(NOT status EQUAL 0)
  message(FATAL_ERROR "qzhost exited with ${status}")
endif()
if(NOT EXISTS ${WORK_DIR}/frame_0001.png)
  message(FATAL_ERROR "qzhost did not write ${WORK_DIR}/frame_0001.png")
endif()
if(NOT out MATCHES "wrote ${WORK_DIR}/frame_0001.png")
  message(FATAL_ERROR "qzhost did not print the path it wrote")
endif()
