@echo off
rem run-tests.cmd [NAME...]: runs the test programs NAME_tests.exe, all of them without a name, and
rem writes what each prints and how it ended to results.txt beside this file.
setlocal enabledelayedexpansion
cd /d "%~dp0bin"
set CORVANE_TEST_DATA=%~dp0tests
set RESULTS=%~dp0results.txt
set FAILED=0
set NAMES=%*
if "%~1"=="" set NAMES=platform text report files bsd database preview legacy companions shell stand_ins tools fuzz fault ui program
ver > "%RESULTS%"
echo %PROCESSOR_ARCHITECTURE% %NUMBER_OF_PROCESSORS% >> "%RESULTS%"
for %%N in (%NAMES%) do (
    echo %%N
    echo == %%N >> "%RESULTS%"
    %%N_tests.exe --gtest_brief=1 >> "%RESULTS%" 2>&1
    set STATUS=!ERRORLEVEL!
    echo == %%N ended with !STATUS! >> "%RESULTS%"
    if not !STATUS!==0 (
        echo   failed with !STATUS!
        set /a FAILED+=1
    )
)
echo == failed: %FAILED% >> "%RESULTS%"
echo failed: %FAILED%. See results.txt.
if not %FAILED%==0 exit /b 1
exit /b 0
