# A video through qzhost the way a converter pipeline uses it: the sample
# photo becomes a 6-frame YUV4MPEG2 clip, the clip goes through a look on
# the threaded engine from standard input to standard output, and the result
# must be a stream of 6 frames of the same size. A truncated copy must fail
# with a message and keep the frames before the cut.
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
set(common --quiet --assets ${SOURCE_DIR}/assets)
execute_process(
  COMMAND ${QZHOST} ${common} --frames 6 --fps 25 --y4m-out ${WORK_DIR}/clip.y4m
          ${SOURCE_DIR}/samples/photos/astronaut.png
  RESULT_VARIABLE status ERROR_VARIABLE err)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "making the clip failed: ${err}")
endif()
execute_process(
  COMMAND ${QZHOST} ${common} --threaded --effect ${SOURCE_DIR}/samples/packages/filter_pink --y4m-out - -
  INPUT_FILE ${WORK_DIR}/clip.y4m
  OUTPUT_FILE ${WORK_DIR}/out.y4m
  RESULT_VARIABLE status ERROR_VARIABLE err)
message("${err}")
if(NOT status EQUAL 0)
  message(FATAL_ERROR "the threaded video run exited with ${status}")
endif()
file(READ ${WORK_DIR}/out.y4m head LIMIT 40)
if(NOT head MATCHES "^YUV4MPEG2 W512 H512 F25:1")
  message(FATAL_ERROR "the output is not a 512x512 YUV4MPEG2 stream at 25 fps: ${head}")
endif()
file(SIZE ${WORK_DIR}/out.y4m size)
# Header line plus six times ("FRAME\n" and 512 x 512 x 1.5 bytes).
string(LENGTH "YUV4MPEG2 W512 H512 F25:1 Ip A1:1 C420jpeg\n" header)
math(EXPR expected "${header} + 6 * (6 + 393216)")
if(NOT size EQUAL expected)
  message(FATAL_ERROR "the output holds ${size} bytes, not the ${expected} of six frames")
endif()
execute_process(
  COMMAND head -c 900000 ${WORK_DIR}/clip.y4m
  OUTPUT_FILE ${WORK_DIR}/cut.y4m)
execute_process(
  COMMAND ${QZHOST} ${common} --raw-out ${WORK_DIR}/cut.i420 --output-format i420 ${WORK_DIR}/cut.y4m
  RESULT_VARIABLE status ERROR_VARIABLE err)
if(status EQUAL 0 OR NOT err MATCHES "frame 3 is truncated")
  message(FATAL_ERROR "a truncated stream was not refused: ${err}")
endif()
file(SIZE ${WORK_DIR}/cut.i420 kept)
if(NOT kept EQUAL 786432)
  message(FATAL_ERROR "the two frames before the cut were not kept: ${kept} bytes")
endif()
