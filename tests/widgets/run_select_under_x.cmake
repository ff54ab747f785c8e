# SPDX-License-Identifier: MIT
# Runs devctrl-select under Xvfb twice: a valid choice is printed with exit
# status 0 and a screenshot is saved; an invalid one exits 1 with the reason.
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
set(ENV{DEVCTRL_SETTINGS} ${WORK_DIR}/settings.ini)
unset(ENV{QT_QPA_PLATFORM})
find_program(XVFB_RUN xvfb-run REQUIRED)

execute_process(
    COMMAND ${XVFB_RUN} -a ${SELECT} --data ${DATA} --part zr12-2q48c --asc ASC20 --json
            --accept --screenshot ${WORK_DIR}/dialog.png
    OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE status TIMEOUT 60)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "valid choice: exit ${status}\n${out}\n${err}")
endif()
string(JSON part GET "${out}" part)
string(JSON speed GET "${out}" speed)
string(JSON linked GET "${out}" linkedAscs ASC20)
if(NOT part STREQUAL "ZR12-2Q48C" OR NOT speed STREQUAL "2" OR NOT linked EQUAL 1)
    message(FATAL_ERROR "unexpected choice printed:\n${out}")
endif()
file(SIZE ${WORK_DIR}/dialog.png png_size)
if(png_size LESS 5000)
    message(FATAL_ERROR "screenshot missing or blank (${png_size} bytes)")
endif()
file(READ ${WORK_DIR}/settings.ini settings)
if(NOT settings MATCHES "Device=ZR12-2Q48C")
    message(FATAL_ERROR "OK did not save the default device:\n${settings}")
endif()

execute_process(
    COMMAND ${XVFB_RUN} -a ${SELECT} --data ${DATA} --part ZR12-2Q48C --asc ASC10 --asc ASC10
            --asc ASC10 --accept
    OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE status TIMEOUT 60)
if(NOT status EQUAL 1 OR NOT out STREQUAL "" OR NOT err MATCHES "will be exceeded")
    message(FATAL_ERROR "invalid choice: exit ${status}\nstdout: ${out}\nstderr: ${err}")
endif()
