# Runs qzhost on the sample photo with its landmarks and the face-point
# node: the record it writes must be the committed FP sample, and the frame
# it reads back must be red at a landmark (the left pupil) and not beside it.
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
execute_process(
  COMMAND ${QZHOST} --quiet --assets ${SOURCE_DIR}/assets
          --landmarks ${SOURCE_DIR}/samples/faces/astronaut.landmarks.json --show-points
          --write-record ${WORK_DIR}/astronaut.fp.rec --raw-out ${WORK_DIR}/frame.rgba
          ${SOURCE_DIR}/samples/photos/astronaut.png
  RESULT_VARIABLE status
  OUTPUT_VARIABLE out
  ERROR_VARIABLE err)
message("${out}${err}")
if(NOT status EQUAL 0)
  message(FATAL_ERROR "qzhost exited with ${status}")
endif()
execute_process(
  COMMAND ${CMAKE_COMMAND} -E compare_files ${WORK_DIR}/astronaut.fp.rec
          ${SOURCE_DIR}/samples/faces/astronaut.fp.rec
  RESULT_VARIABLE differs)
if(differs)
  message(FATAL_ERROR "the written record differs from samples/faces/astronaut.fp.rec")
endif()

# RGBA rows of the 512 x 512 photo, bottom row first.
function(pixel x y result)
  math(EXPR offset "((511 - ${y}) * 512 + ${x}) * 4")
  file(READ ${WORK_DIR}/frame.rgba hex OFFSET ${offset} LIMIT 4 HEX)
  set(${result} ${hex} PARENT_SCOPE)
endfunction()
pixel(202 101 pupil)   # the left pupil of the landmark file
pixel(196 128 cheek)   # the left cheek, 14 pixels from the nearest landmark
if(NOT pupil STREQUAL "ff0000ff")
  message(FATAL_ERROR "no red point at the left pupil (got ${pupil})")
endif()
if(cheek STREQUAL "ff0000ff")
  message(FATAL_ERROR "red on the cheek, where no landmark lies")
endif()
