# Runs npm ci in DIR when node_modules is missing or older than the lock
# file (npm ci writes node_modules/.package-lock.json). Run with
# cmake -DNPM=npm -DDIR=folder -P NpmInstall.cmake.
set(_installed "${DIR}/node_modules/.package-lock.json")
if(NOT EXISTS "${_installed}" OR "${DIR}/package-lock.json" IS_NEWER_THAN "${_installed}")
  message(STATUS "npm ci in ${DIR}")
  execute_process(COMMAND "${NPM}" ci --no-audit --no-fund --loglevel=error
                  WORKING_DIRECTORY "${DIR}" RESULT_VARIABLE _status)
  if(NOT _status EQUAL 0)
    message(FATAL_ERROR "npm ci failed in ${DIR} (status ${_status})")
  endif()
endif()
