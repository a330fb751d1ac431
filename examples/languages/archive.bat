@echo off
rem Packs the folders below a folder into one archive each, and keeps the newest few.
rem
rem   archive.bat [/n count] [folder [target]]

:: Two colons begin a comment as well, for what does not belong to the help.
setlocal EnableExtensions EnableDelayedExpansion

set "KEEP=5"
set "SOURCE=%USERPROFILE%\Documents"
set "TARGET=%TEMP%\archives"
set /a count=0, failed=0

:options
if "%~1"=="" goto ready
if /i "%~1"=="/n" (
    set "KEEP=%~2"
    shift
    shift
    goto options
)
if /i "%~1"=="/?" call :usage & exit /b 0
if not defined SOURCE_GIVEN (
    set "SOURCE=%~f1"
    set "SOURCE_GIVEN=yes"
) else (
    set "TARGET=%~f1"
)
shift
goto options

:ready
if not exist "%SOURCE%\" (
    echo There is no folder "%SOURCE%". 1>&2
    exit /b 2
)
if not exist "%TARGET%\" mkdir "%TARGET%" || exit /b 3
where tar >nul 2>&1
if errorlevel 1 (
    echo This needs tar, which Windows 10 and later have. 1>&2
    exit /b 4
)

for /f "tokens=1-3 delims=/.- " %%a in ("%DATE%") do set "TODAY=%%c%%b%%a"

for /d %%d in ("%SOURCE%\*") do (
    call :pack "%%~fd" "%%~nxd"
    if !errorlevel! neq 0 set /a failed+=1
)

echo %count% folders are packed, %failed% failed.
if %failed% gtr 0 (exit /b 1) else exit /b 0

rem Packs the folder %1 under the name %2.
:pack
set "ARCHIVE=%TARGET%\%~2-%TODAY%.tar.gz"
if exist "%ARCHIVE%" (
    echo %~2 is packed already.
    exit /b 0
)
tar -czf "%ARCHIVE%" -C "%~dp1." "%~nx1"
if %errorlevel% equ 0 set /a count+=1
set /a seen=0
for /f "delims=" %%f in ('dir /b /o:-d "%TARGET%\%~2-*.tar.gz" 2^>nul') do (
    set /a seen+=1
    if !seen! gtr %KEEP% (
        echo Removing "%%f"
        del /q "%TARGET%\%%f"
    )
)
goto :eof

:usage
echo Usage: %~nx0 [/n count] [folder [target]]
echo.
echo   /n count   how many archives stay of each folder ^(now %KEEP%^)
echo   folder     what is packed ^| now "%SOURCE%"
echo   target     where the archives go, 100%% of the time "%TARGET%"
exit /b
