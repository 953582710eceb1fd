# Runs one fuzz target for $FUZZ_SECONDS seconds (60 when unset) on a corpus folder that
# starts from the checked-in seeds. Called as: cmake -DFUZZER=... -DSEEDS=... -DCORPUS=... -P
set(seconds "$ENV{FUZZ_SECONDS}")
if(NOT seconds)
  set(seconds 60)
endif()
file(MAKE_DIRECTORY "${CORPUS}")
if(IS_DIRECTORY "${SEEDS}")
  file(COPY "${SEEDS}/" DESTINATION "${CORPUS}")
endif()
execute_process(COMMAND "${FUZZER}" -max_total_time=${seconds} "${CORPUS}"
  RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${FUZZER} found a failure (exit status ${result}).")
endif()
