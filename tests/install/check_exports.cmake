# SPDX-License-Identifier: MIT
# The shared library exports its interface and nothing else: the classes and
# functions of the installed headers, and the profile functions under their
# plain C names; the indexes, locks and writers inside it stay hidden.
execute_process(COMMAND nm -D --defined-only ${LIBRARY} OUTPUT_VARIABLE raw RESULT_VARIABLE rc)
if(rc)
    message(FATAL_ERROR "nm failed on ${LIBRARY}: ${rc}")
endif()
execute_process(COMMAND nm -D --defined-only -C ${LIBRARY} OUTPUT_VARIABLE demangled)

foreach(name GetPrivateProfileString GetPrivateProfileInt GetPrivateProfileSection
             WritePrivateProfileString)
    if(NOT raw MATCHES " T ${name}\n")
        message(FATAL_ERROR "${name} is not exported under its C name")
    endif()
endforeach()
foreach(name "tarn::vyxpn::TarnDeviceMngr::getInstance" "tarn::vyxpn::TarnSDSFile::getDevices"
             "tarn::vyxpn::searchParts" "typeinfo for tarn::vyxpn::DataError"
             "setDiagTraceHandler" "PM_PIC::")
    string(FIND "${demangled}" "${name}" at)
    if(at EQUAL -1)
        message(FATAL_ERROR "${name} is not exported")
    endif()
endforeach()
foreach(name TarnPartIndex CachedPartList FilteredPartLists ProfileLock writeProfileString
             writeWholeFile "DataFile::" KeyedRecordLines readPmRecord)
    string(FIND "${demangled}" "${name}" at)
    if(NOT at EQUAL -1)
        message(FATAL_ERROR "internal ${name} is exported")
    endif()
endforeach()
