# SPDX-License-Identifier: MIT
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "failed (${status}): ${ARGN}\n${output}")
  endif()
endfunction()

file(REMOVE_RECURSE "${work}/root" "${work}/moved" "${work}/consumer")
run(${CMAKE_COMMAND} --install ${build} --prefix ${work}/root)
# The tree must not depend on where it was installed.
file(RENAME "${work}/root" "${work}/moved")
run(${CMAKE_COMMAND} -G ${generator} -S ${consumer} -B ${work}/consumer -D CMAKE_PREFIX_PATH=${work}/moved
    -D CMAKE_BUILD_TYPE=Debug -D SANITIZE=${sanitize})
run(${CMAKE_COMMAND} --build ${work}/consumer)
run(${work}/consumer/consumer)
run(${work}/moved/bin/kova-shell --version)
file(REMOVE_RECURSE "${work}/moved" "${work}/consumer")
