<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Chart</name>
    <message>
        <source>There are no plots in this program: it was built without Qwt. The table tells the same.</source>
        <translation>There are no plots in this program: it was built without Qwt. The table tells the same.</translation>
    </message>
    <message>
        <source>No data</source>
        <translation>No data</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>--%1: &quot;%2&quot; is not a whole number of %3 or more</source>
        <translation>--%1: &quot;%2&quot; is not a whole number of %3 or more</translation>
    </message>
    <message>
        <source>--%1 does not go with --each</source>
        <translation>--%1 does not go with --each</translation>
    </message>
    <message>
        <source>--%1: &quot;%2&quot; is no file</source>
        <translation>--%1: &quot;%2&quot; is not a file</translation>
    </message>
    <message>
        <source>--json and --junit name the same file</source>
        <translation>--json and --junit name the same file</translation>
    </message>
    <message>
        <source>Run these components unattended (comma-separated, or &quot;all&quot;), print the result and leave: %1. Items by their numbers: camera:0+1,gimbal:0-4,log.</source>
        <translation>Run these components unattended (comma-separated, or &quot;all&quot;), print the result and leave: %1. Items by their numbers: camera:0+1,gimbal:0-4,log.</translation>
    </message>
    <message>
        <source>components</source>
        <translation>components</translation>
    </message>
    <message>
        <source>Save the logs below this folder (default: beside the program).</source>
        <translation>Save the logs below this folder (default: beside the program).</translation>
    </message>
    <message>
        <source>folder</source>
        <translation>folder</translation>
    </message>
    <message>
        <source>Wait this long for the camera (default: 30).</source>
        <translation>Wait this long for the camera (default: 30).</translation>
    </message>
    <message>
        <source>seconds</source>
        <translation>seconds</translation>
    </message>
    <message>
        <source>Save a picture of the window after the run (PNG).</source>
        <translation>Save a picture of the window after the run (PNG).</translation>
    </message>
    <message>
        <source>file</source>
        <translation>file</translation>
    </message>
    <message>
        <source>Number of runs (default: 1).</source>
        <translation>Number of runs (default: 1).</translation>
    </message>
    <message>
        <source>count</source>
        <translation>count</translation>
    </message>
    <message>
        <source>Run once for each camera that connects, until the program is closed.</source>
        <translation>Run once for each camera that connects, until the program is closed.</translation>
    </message>
    <message>
        <source>Save the record of the run as JSON; of several runs, a line each. With &quot;-&quot; it is all that goes to standard output, and the other texts go to standard error.</source>
        <translation>Save the record of the run as JSON; of several runs, a line each. With &quot;-&quot; it is all that goes to standard output, and the other texts go to standard error.</translation>
    </message>
    <message>
        <source>Save the record of the runs as a JUnit report (XML).</source>
        <translation>Save the record of the runs as a JUnit report (XML).</translation>
    </message>
    <message>
        <source>Who runs it, for the record (default: by option.ini).</source>
        <translation>Who runs it, for the record (default: by option.ini).</translation>
    </message>
    <message>
        <source>name</source>
        <translation>name</translation>
    </message>
    <message>
        <source>The camera&apos;s batch, likewise.</source>
        <translation>The camera&apos;s batch, likewise.</translation>
    </message>
    <message>
        <source>batch</source>
        <translation>batch</translation>
    </message>
    <message>
        <source>The camera&apos;s serial number, for the record.</source>
        <translation>The camera&apos;s serial number, for the record.</translation>
    </message>
    <message>
        <source>number</source>
        <translation>number</translation>
    </message>
    <message>
        <source>Close the window after this time, whatever goes on, as a hand would; the exit code is then 4.</source>
        <translation>Close the window after this time, whatever goes on, as a hand would; the exit code is then 4.</translation>
    </message>
    <message>
        <source>milliseconds</source>
        <translation>milliseconds</translation>
    </message>
    <message>
        <source>Show this text.</source>
        <translation>Show this text.</translation>
    </message>
    <message>
        <source>Show the program&apos;s version.</source>
        <translation>Show the program&apos;s version.</translation>
    </message>
    <message>
        <source>Self-test station for WiFi gimbal cameras. Without options it opens its window.
Exit codes of an unattended run: 0 passed, 1 failed, 2 wrong usage, malformed settings or a second station, 3 no camera in time or lost or changed during a run, 4 stopped or closed before the end, 5 not everything was saved.</source>
        <translation>Self-test station for WiFi gimbal cameras. Without options it opens its window.
Exit codes of an unattended run: 0 passed, 1 failed, 2 wrong usage, malformed settings or a second station, 3 no camera in time or lost or changed during a run, 4 stopped or closed before the end, 5 not everything was saved.</translation>
    </message>
    <message>
        <source>Unexpected argument &quot;%1&quot;</source>
        <translation>Unexpected argument &quot;%1&quot;</translation>
    </message>
    <message>
        <source>--%1 goes with --run</source>
        <translation>--%1 goes with --run</translation>
    </message>
    <message>
        <source>--connect-timeout: at most %1</source>
        <translation>--connect-timeout: at most %1</translation>
    </message>
    <message>
        <source>--screenshot: &quot;%1&quot; does not end in .png</source>
        <translation>--screenshot: &quot;%1&quot; does not end in .png</translation>
    </message>
    <message>
        <source>--serial: &quot;%1&quot; does not match Station/serialPattern=&quot;%2&quot;</source>
        <translation>--serial: &quot;%1&quot; does not match Station/serialPattern=&quot;%2&quot;</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>All time</source>
        <translation>All time</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Today</translation>
    </message>
    <message>
        <source>7 days</source>
        <translation>7 days</translation>
    </message>
    <message>
        <source>30 days</source>
        <translation>30 days</translation>
    </message>
    <message>
        <source>365 days</source>
        <translation>365 days</translation>
    </message>
    <message>
        <source>From … to …</source>
        <translation>From … to …</translation>
    </message>
    <message>
        <source>&amp;MAC</source>
        <translation>&amp;MAC</translation>
    </message>
    <message>
        <source>60:60:1F or 60601f</source>
        <translation>60:60:1F or 60601f</translation>
    </message>
    <message>
        <source>Se&amp;rial</source>
        <translation>Se&amp;rial</translation>
    </message>
    <message>
        <source>&amp;Outcome</source>
        <translation>&amp;Outcome</translation>
    </message>
    <message>
        <source>All</source>
        <translation>All</translation>
    </message>
    <message>
        <source>F&amp;inding</source>
        <translation>F&amp;inding</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>C&amp;lear</translation>
    </message>
    <message>
        <source>&amp;Period</source>
        <translation>&amp;Period</translation>
    </message>
    <message>
        <source>From</source>
        <translation>From</translation>
    </message>
    <message>
        <source>to</source>
        <translation>to</translation>
    </message>
    <message>
        <source>S&amp;tation</source>
        <translation>S&amp;tation</translation>
    </message>
    <message>
        <source>&amp;Batch</source>
        <translation>&amp;Batch</translation>
    </message>
    <message>
        <source>Firm&amp;ware</source>
        <translation>Firm&amp;ware</translation>
    </message>
</context>
<context>
    <name>History</name>
    <message>
        <source>Passed</source>
        <translation>Passed</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Failed</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Stopped</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>Not tested</source>
        <translation>Not tested</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copy</translation>
    </message>
</context>
<context>
    <name>HistoryTexts</name>
    <message numerus="yes">
        <source>%n of these runs are not on the server yet; &quot;forward&quot; sends them, --unsent removes them all the same</source>
        <translation>
            <numerusform>%n of these runs is not on the server yet; &quot;forward&quot; sends it, --unsent removes it all the same</numerusform>
            <numerusform>%n of these runs are not on the server yet; &quot;forward&quot; sends them, --unsent removes them all the same</numerusform>
        </translation>
    </message>
    <message>
        <source>prune</source>
        <translation>prune</translation>
    </message>
    <message>
        <source>%1 removed</source>
        <translation>%1 removed</translation>
    </message>
    <message>
        <source>%1 names no store: give --store, or file= in its section [History]</source>
        <translation>%1 names no store: give --store, or file= in its section [History]</translation>
    </message>
    <message>
        <source>standard output</source>
        <translation>standard output</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 cannot be written: %2</translation>
    </message>
    <message>
        <source>run %1: %2</source>
        <translation>run %1: %2</translation>
    </message>
    <message>
        <source>export</source>
        <translation>export</translation>
    </message>
    <message>
        <source>no such runs</source>
        <translation>no such runs</translation>
    </message>
    <message>
        <source>%1 cannot be made</source>
        <translation>%1 cannot be created</translation>
    </message>
    <message>
        <source>%1 names no server: server= in its section [History]</source>
        <translation>%1 names no server: server= in its section [History]</translation>
    </message>
    <message>
        <source>forward</source>
        <translation>forward</translation>
    </message>
    <message>
        <source>%1 sent</source>
        <translation>%1 sent</translation>
    </message>
    <message>
        <source>the latest runs, the latest first</source>
        <translation>the latest runs, the latest first</translation>
    </message>
    <message>
        <source>a run with all that it found</source>
        <translation>a run with all that it found</translation>
    </message>
    <message>
        <source>every run of a camera, and what changed when it began to fail</source>
        <translation>every run of a camera, and what changed when it began to fail</translation>
    </message>
    <message>
        <source>yields, and what fails</source>
        <translation>yields, and what fails</translation>
    </message>
    <message>
        <source>the same as a page or on paper</source>
        <translation>the same as a page or on paper</translation>
    </message>
    <message>
        <source>records, the oldest first</source>
        <translation>records, the oldest first</translation>
    </message>
    <message>
        <source>records in JSON, and folders that earlier runs have left</source>
        <translation>records in JSON, and folders that earlier runs have left</translation>
    </message>
    <message>
        <source>what the store holds, and what the server does not have yet</source>
        <translation>what the store holds, and what the server does not have yet</translation>
    </message>
    <message>
        <source>send to the server what it does not have yet, now</source>
        <translation>send to the server what it does not have yet, now</translation>
    </message>
    <message>
        <source>remove all runs before a day, and give the space back</source>
        <translation>remove all runs before a day, and give the space back</translation>
    </message>
    <message>
        <source>A store&apos;s file, or postgresql://user@host/db (default: that of option.ini).</source>
        <translation>A store&apos;s file, or postgresql://user@host/db (default: that of option.ini).</translation>
    </message>
    <message>
        <source>The camera&apos;s MAC address, or its beginning.</source>
        <translation>The camera&apos;s MAC address, or its beginning.</translation>
    </message>
    <message>
        <source>The serial number, or its beginning.</source>
        <translation>The serial number, or its beginning.</translation>
    </message>
    <message>
        <source>From this day on: 2026-11-21, or 7d for the last seven days.</source>
        <translation>From this day on: 2026-11-21, or 7d for the last seven days.</translation>
    </message>
    <message>
        <source>Up to this day, which is included.</source>
        <translation>Up to this day, which is included.</translation>
    </message>
    <message>
        <source>Runs of this station.</source>
        <translation>Runs of this station.</translation>
    </message>
    <message>
        <source>Runs of this batch.</source>
        <translation>Runs of this batch.</translation>
    </message>
    <message>
        <source>Runs of cameras with this firmware.</source>
        <translation>Runs of cameras with this firmware.</translation>
    </message>
    <message>
        <source>Only runs that failed.</source>
        <translation>Only runs that failed.</translation>
    </message>
    <message>
        <source>Only runs in which this item failed or warned, such as battery.info.</source>
        <translation>Only runs in which this item failed or warned, such as battery.info.</translation>
    </message>
    <message>
        <source>The most runs (list: 100, export: all; 0: all).</source>
        <translation>At most this many runs (list: 100, export: all; 0: all).</translation>
    </message>
    <message>
        <source>As JSON.</source>
        <translation>As JSON.</translation>
    </message>
    <message>
        <source>As comma-separated values, for spreadsheets.</source>
        <translation>As comma-separated values, for spreadsheets.</translation>
    </message>
    <message>
        <source>As JUnit reports, one file a run.</source>
        <translation>As JUnit reports, one file a run.</translation>
    </message>
    <message>
        <source>Into this file (JUnit: this folder), not to standard output.</source>
        <translation>Into this file (JUnit: this folder), not to standard output.</translation>
    </message>
    <message>
        <source>Window: the folder that was chosen for results at the station.</source>
        <translation>Window: the folder that was chosen for results at the station.</translation>
    </message>
    <message>
        <source>The first day whose runs stay.</source>
        <translation>The first day whose runs stay.</translation>
    </message>
    <message>
        <source>Also runs that the server does not have yet.</source>
        <translation>Also runs that the server does not have yet.</translation>
    </message>
    <message>
        <source>Keeps and finds the runs of KestDetector. Without a command it opens its window. Commands:</source>
        <translation>Keeps and finds the runs of KestDetector. Without a command it opens its window. Commands:</translation>
    </message>
    <message>
        <source>Exit codes: 0 done, 1 nothing found or not everything taken in, 2 wrong usage, 3 store, file or server failed, 130 interrupted.</source>
        <translation>Exit codes: 0 done, 1 nothing found or not everything taken in, 2 wrong usage, 3 store, file or server failed, 130 interrupted.</translation>
    </message>
    <message>
        <source>--%1 does not go with %2</source>
        <translation>--%1 does not go with %2</translation>
    </message>
    <message>
        <source>--%1 is given twice</source>
        <translation>--%1 is given twice</translation>
    </message>
    <message>
        <source>Unexpected argument &quot;%1&quot;</source>
        <translation>Unexpected argument &quot;%1&quot;</translation>
    </message>
    <message>
        <source>%1 wants %2</source>
        <translation>%1 wants %2</translation>
    </message>
    <message>
        <source>--%1: &quot;%2&quot; is no day such as 2026-11-21 or 7d</source>
        <translation>--%1: &quot;%2&quot; is no day such as 2026-11-21 or 7d</translation>
    </message>
    <message>
        <source>--since lies behind --until</source>
        <translation>--since is later than --until</translation>
    </message>
    <message>
        <source>prune wants --before</source>
        <translation>prune wants --before</translation>
    </message>
    <message>
        <source>--item: &quot;%1&quot; is no key such as battery.info</source>
        <translation>--item: &quot;%1&quot; is no key such as battery.info</translation>
    </message>
    <message>
        <source>--limit: &quot;%1&quot; is not a whole number of 0 or more</source>
        <translation>--limit: &quot;%1&quot; is not a whole number of 0 or more</translation>
    </message>
    <message>
        <source>Only one of --json, --csv and --junit</source>
        <translation>Only one of --json, --csv and --junit</translation>
    </message>
    <message>
        <source>--junit wants --out with a folder</source>
        <translation>--junit wants --out with a folder</translation>
    </message>
    <message>
        <source>report wants --out with a file that ends in .html or .pdf</source>
        <translation>report wants --out with a file that ends in .html or .pdf</translation>
    </message>
    <message>
        <source>What to do.</source>
        <translation>What to do.</translation>
    </message>
    <message>
        <source>Show this text.</source>
        <translation>Show this text.</translation>
    </message>
    <message>
        <source>Show the program&apos;s version.</source>
        <translation>Show the program&apos;s version.</translation>
    </message>
    <message>
        <source>--%1 wants a command</source>
        <translation>--%1 wants a command</translation>
    </message>
    <message>
        <source>There is no command &quot;%1&quot;</source>
        <translation>There is no command &quot;%1&quot;</translation>
    </message>
    <message>
        <source>import</source>
        <translation>import</translation>
    </message>
    <message>
        <source>%1 added, %2 already there, %3 refused</source>
        <translation>%1 added, %2 already there, %3 refused</translation>
    </message>
    <message>
        <source>run %1 has no time</source>
        <translation>run %1 has no time</translation>
    </message>
    <message>
        <source>%1: no DetectorLog.txt in folders such as 2024-05-06_60601F0A5F2A</source>
        <translation>%1: no DetectorLog.txt in folders such as 2024-05-06_60601F0A5F2A</translation>
    </message>
    <message>
        <source>larger than %1 MiB</source>
        <translation>larger than %1 MiB</translation>
    </message>
    <message>
        <source>names no component</source>
        <translation>names no component</translation>
    </message>
    <message numerus="yes">
        <source>%1: %n lines are not understood</source>
        <translation>
            <numerusform>%1: %n line is not understood</numerusform>
            <numerusform>%1: %n lines are not understood</numerusform>
        </translation>
    </message>
    <message>
        <source>its record is not there</source>
        <translation>its record is not there</translation>
    </message>
    <message>
        <source>there is no run &quot;%1&quot;</source>
        <translation>there is no run &quot;%1&quot;</translation>
    </message>
    <message>
        <source>there are several runs that begin with &quot;%1&quot;</source>
        <translation>there are several runs that begin with &quot;%1&quot;</translation>
    </message>
    <message>
        <source>no runs of &quot;%1&quot;</source>
        <translation>no runs of &quot;%1&quot;</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is the beginning of several cameras: %2, %3, ...</source>
        <translation>&quot;%1&quot; is the beginning of several cameras: %2, %3, ...</translation>
    </message>
    <message>
        <source>no runs in this period</source>
        <translation>no runs in this period</translation>
    </message>
    <message>
        <source>never</source>
        <translation>never</translation>
    </message>
    <message>
        <source>none</source>
        <translation>none</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Store</source>
        <translation>Store</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>Runs</translation>
    </message>
    <message>
        <source>Queued</source>
        <translation>Queued</translation>
    </message>
    <message>
        <source>Last sent</source>
        <translation>Last sent</translation>
    </message>
    <message>
        <source>Last error</source>
        <translation>Last error</translation>
    </message>
    <message>
        <source>report</source>
        <translation>report</translation>
    </message>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1 and %2 more</translation>
    </message>
    <message>
        <source>OUTSIDE</source>
        <translation>OUTSIDE</translation>
    </message>
    <message>
        <source>request %1</source>
        <translation>request %1</translation>
    </message>
    <message>
        <source>%1 (code %2)</source>
        <translation>%1 (code %2)</translation>
    </message>
    <message numerus="yes">
        <source>%1, %n attempts</source>
        <translation>
            <numerusform>%1, %n attempt</numerusform>
            <numerusform>%1, %n attempts</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1: %2 (%3)</source>
        <translation>%1: %2 (%3)</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>(none)</translation>
    </message>
    <message>
        <source>RUNS</source>
        <translation>RUNS</translation>
    </message>
    <message>
        <source>PASSED</source>
        <translation>PASSED</translation>
    </message>
    <message>
        <source>FAILED</source>
        <translation>FAILED</translation>
    </message>
    <message>
        <source>OTHER</source>
        <translation>OTHER</translation>
    </message>
    <message>
        <source>CAMERAS</source>
        <translation>CAMERAS</translation>
    </message>
    <message>
        <source>FIRST-PASS</source>
        <translation>FIRST-PASS</translation>
    </message>
    <message>
        <source>FINAL</source>
        <translation>FINAL</translation>
    </message>
    <message>
        <source>RUN</source>
        <translation>RUN</translation>
    </message>
    <message>
        <source>BEGIN</source>
        <translation>BEGIN</translation>
    </message>
    <message>
        <source>OUTCOME</source>
        <translation>OUTCOME</translation>
    </message>
    <message>
        <source>MAC</source>
        <translation>MAC</translation>
    </message>
    <message>
        <source>SERIAL</source>
        <translation>SERIAL</translation>
    </message>
    <message>
        <source>STATION</source>
        <translation>STATION</translation>
    </message>
    <message>
        <source>BATCH</source>
        <translation>BATCH</translation>
    </message>
    <message>
        <source>FIRMWARE</source>
        <translation>FIRMWARE</translation>
    </message>
    <message>
        <source>DURATION</source>
        <translation>DURATION</translation>
    </message>
    <message>
        <source>FAILURE</source>
        <translation>FAILURE</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Run</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>Outcome</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Reason</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>Begin</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Duration</translation>
    </message>
    <message>
        <source>Serial</source>
        <translation>Serial</translation>
    </message>
    <message>
        <source>WiFi name</source>
        <translation>WiFi name</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Link</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>Firmware</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>Station</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Location</translation>
    </message>
    <message>
        <source>Operator</source>
        <translation>Operator</translation>
    </message>
    <message>
        <source>Batch</source>
        <translation>Batch</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>Program</translation>
    </message>
    <message>
        <source>WHAT</source>
        <translation>WHAT</translation>
    </message>
    <message>
        <source>LAST PASS</source>
        <translation>LAST PASS</translation>
    </message>
    <message>
        <source>FIRST FAILURE</source>
        <translation>FIRST FAILURE</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>Period</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 to %2</translation>
    </message>
    <message>
        <source>%1: %2 passed, %3 failed, %4 stopped, %5 without answer</source>
        <translation>%1: %2 passed, %3 failed, %4 stopped, %5 without answer</translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation>Cameras</translation>
    </message>
    <message>
        <source>First-pass</source>
        <translation>First-pass</translation>
    </message>
    <message>
        <source>Final</source>
        <translation>Final</translation>
    </message>
    <message>
        <source>ITEM</source>
        <translation>ITEM</translation>
    </message>
    <message>
        <source>SO FAR</source>
        <translation>SO FAR</translation>
    </message>
    <message>
        <source>WARNED</source>
        <translation>WARNED</translation>
    </message>
    <message>
        <source>TESTED</source>
        <translation>TESTED</translation>
    </message>
    <message>
        <source>DAY</source>
        <translation>DAY</translation>
    </message>
    <message>
        <source>Try --help.</source>
        <translation>Try --help.</translation>
    </message>
    <message>
        <source>there is no display for the window, and a command is missing</source>
        <translation>there is no display for the window, and a command is missing</translation>
    </message>
</context>
<context>
    <name>HistoryWindow</name>
    <message>
        <source>%1 – History</source>
        <translation>%1 – History</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Run</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Unit</translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation>Statistics</translation>
    </message>
    <message>
        <source>Try A&amp;gain</source>
        <translation>Try A&amp;gain</translation>
    </message>
    <message>
        <source>Runs, the latest one first</source>
        <translation>Runs, the latest one first</translation>
    </message>
    <message>
        <source>&amp;History</source>
        <translation>&amp;History</translation>
    </message>
    <message>
        <source>&amp;Search</source>
        <translation>&amp;Search</translation>
    </message>
    <message>
        <source>&amp;Clear Filters</source>
        <translation>&amp;Clear Filters</translation>
    </message>
    <message>
        <source>&amp;Refresh</source>
        <translation>&amp;Refresh</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Close</translation>
    </message>
    <message>
        <source>Ru&amp;n</source>
        <translation>Ru&amp;n</translation>
    </message>
    <message>
        <source>Open &amp;Folder</source>
        <translation>Open &amp;Folder</translation>
    </message>
    <message>
        <source>&amp;Copy Run</source>
        <translation>&amp;Copy Run</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>Zoom &amp;In</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Zoom &amp;Out</translation>
    </message>
    <message>
        <source>&amp;Whole Plot</source>
        <translation>&amp;Whole Plot</translation>
    </message>
    <message>
        <source>Copy &amp;Picture</source>
        <translation>Copy &amp;Picture</translation>
    </message>
    <message>
        <source>&amp;Save Picture…</source>
        <translation>&amp;Save Picture…</translation>
    </message>
    <message numerus="yes">
        <source>%Ln runs so far</source>
        <translation>
            <numerusform>%Ln run so far</numerusform>
            <numerusform>%Ln runs so far</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln runs</source>
        <translation>
            <numerusform>%Ln run</numerusform>
            <numerusform>%Ln runs</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HistoryWriter</name>
    <message>
        <source>a run could be kept nowhere: %1; %2</source>
        <translation>a run could be kept nowhere: %1; %2</translation>
    </message>
</context>
<context>
    <name>KestDetectorUI</name>
    <message>
        <source>Kest自检工具V1.0.0</source>
        <translation>Kest self-test tool V1.0.0</translation>
    </message>
    <message>
        <source>Current unit:Camera</source>
        <translation>Component: Camera</translation>
    </message>
    <message>
        <source>Current item:Camera</source>
        <translation>Item: Camera</translation>
    </message>
    <message>
        <source>NA</source>
        <translation>NA</translation>
    </message>
    <message>
        <source>Component test result:</source>
        <translation>Component results:</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Camera</translation>
    </message>
    <message>
        <source>Gimbal</source>
        <translation>Gimbal</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>Battery</translation>
    </message>
    <message>
        <source>TF Card</source>
        <translation>TF card</translation>
    </message>
    <message>
        <source>Lens</source>
        <translation>Lens</translation>
    </message>
    <message>
        <source>Fan</source>
        <translation>Fan</translation>
    </message>
    <message>
        <source>Button</source>
        <translation>Button</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Audio</translation>
    </message>
    <message>
        <source>PCBA</source>
        <translation>PCBA</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Select inspection unit</source>
        <translation>Components to test</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Log</translation>
    </message>
    <message>
        <source>Path:</source>
        <translation>Folder:</translation>
    </message>
    <message>
        <source>select save path</source>
        <translation>Choose folder</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Select all</translation>
    </message>
    <message>
        <source>Unselect All</source>
        <translation>Unselect all</translation>
    </message>
    <message>
        <source>Event log</source>
        <translation>Event log</translation>
    </message>
    <message>
        <source>1</source>
        <translation>1</translation>
    </message>
    <message>
        <source>2</source>
        <translation>2</translation>
    </message>
    <message>
        <source>3</source>
        <translation>3</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Overall</source>
        <translation>Overall</translation>
    </message>
    <message>
        <source>KestDetector_V%1</source>
        <translation>KestDetector_V%1</translation>
    </message>
    <message>
        <source>Total:</source>
        <translation>Total:</translation>
    </message>
    <message>
        <source>Current:</source>
        <translation>Current:</translation>
    </message>
    <message>
        <source>Wifi:</source>
        <translation>WiFi:</translation>
    </message>
    <message>
        <source>Wifi: %1 </source>
        <translation>WiFi: %1 </translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Password:</translation>
    </message>
    <message>
        <source>Password: %1 </source>
        <translation>Password: %1 </translation>
    </message>
    <message>
        <source>Mac:</source>
        <translation>MAC:</translation>
    </message>
    <message>
        <source>Mac: %1 </source>
        <translation>MAC: %1 </translation>
    </message>
    <message>
        <source>Connect State:</source>
        <translation>Link:</translation>
    </message>
    <message>
        <source>Connect State: %1 </source>
        <translation>Link: %1 </translation>
    </message>
    <message>
        <source>Current unit:%1</source>
        <translation>Component: %1</translation>
    </message>
    <message>
        <source>Current item:%1</source>
        <translation>Item: %1</translation>
    </message>
    <message>
        <source>connected</source>
        <translation>connected</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>disconnected</translation>
    </message>
    <message>
        <source>Stop the run	Esc</source>
        <translation>Stop the run	Esc</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>NG</source>
        <translation>NG</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>warning</translation>
    </message>
    <message>
        <source>not tested</source>
        <translation>not tested</translation>
    </message>
    <message>
        <source>Path:%1</source>
        <translation>Folder: %1</translation>
    </message>
</context>
<context>
    <name>LabelQuestion</name>
    <message>
        <source>Serial number:</source>
        <translation>Serial number:</translation>
    </message>
    <message>
        <source>Operator:</source>
        <translation>Operator:</translation>
    </message>
    <message>
        <source>Batch:</source>
        <translation>Batch:</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>No such serial number</source>
        <translation>Not a valid serial number</translation>
    </message>
</context>
<context>
    <name>Limits</name>
    <message>
        <source>not a range such as 3.6..4.35, ..45 or 30000..</source>
        <translation>not a range such as 3.6..4.35, ..45 or 30000..</translation>
    </message>
    <message>
        <source>a range needs a bound</source>
        <translation>a range needs a bound</translation>
    </message>
    <message>
        <source>the lower bound is above the upper one</source>
        <translation>the lower bound is above the upper one</translation>
    </message>
    <message>
        <source>not a list of texts such as 1.2.3|1.2.4</source>
        <translation>not a list of texts such as 1.2.3|1.2.4</translation>
    </message>
    <message>
        <source>there is no such measurement</source>
        <translation>there is no such measurement</translation>
    </message>
</context>
<context>
    <name>Notices</name>
    <message>
        <source>option.ini: %1</source>
        <translation>option.ini: %1</translation>
    </message>
    <message>
        <source>not started: %1</source>
        <translation>not started: %1</translation>
    </message>
    <message>
        <source>waiting for the camera&apos;s shell</source>
        <translation>waiting for the camera&apos;s shell</translation>
    </message>
    <message>
        <source>the run was stopped</source>
        <translation>the run was stopped</translation>
    </message>
    <message>
        <source>nothing was tested</source>
        <translation>nothing was tested</translation>
    </message>
    <message>
        <source>another camera came during the run</source>
        <translation>another camera came during the run</translation>
    </message>
    <message>
        <source>the camera was lost during the run</source>
        <translation>the camera was lost during the run</translation>
    </message>
    <message>
        <source>not saved: %1: %2</source>
        <translation>not saved: %1: %2</translation>
    </message>
    <message>
        <source>history: %1</source>
        <translation>history: %1</translation>
    </message>
    <message>
        <source>queries that had to be sent again: %1</source>
        <translation>queries that had to be sent again: %1</translation>
    </message>
    <message>
        <source>results: %1</source>
        <translation>results: %1</translation>
    </message>
</context>
<context>
    <name>Plots</name>
    <message>
        <source>first-pass yield</source>
        <translation>first-pass yield</translation>
    </message>
    <message>
        <source>final yield</source>
        <translation>final yield</translation>
    </message>
    <message>
        <source>runs</source>
        <translation>runs</translation>
    </message>
    <message>
        <source>%1 runs (%2 passed, %3 failed, %4 stopped, %5 errors) of %6 cameras. First-pass yield %7, final yield %8</source>
        <translation>Runs: %1 (%2 passed, %3 failed, %4 stopped, %5 without answer). Cameras: %6. First-pass yield %7, final yield %8</translation>
    </message>
    <message>
        <source>Yield by day</source>
        <translation>Yield by day</translation>
    </message>
    <message>
        <source>Yield of cameras</source>
        <translation>Yield of cameras</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Day</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>Runs</translation>
    </message>
    <message>
        <source>Passed</source>
        <translation>Passed</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Failed</translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation>Cameras</translation>
    </message>
    <message>
        <source>First-pass yield</source>
        <translation>First-pass yield</translation>
    </message>
    <message>
        <source>Final yield</source>
        <translation>Final yield</translation>
    </message>
    <message>
        <source>Failures by item</source>
        <translation>Failures by item</translation>
    </message>
    <message>
        <source>Failed runs</source>
        <translation>Failed runs</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Item</translation>
    </message>
    <message>
        <source>Ran</source>
        <translation>Ran</translation>
    </message>
    <message>
        <source>Warned</source>
        <translation>Warned</translation>
    </message>
    <message>
        <source>Failed of those that ran</source>
        <translation>Failed of those that ran</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>failed</translation>
    </message>
    <message>
        <source>Duration of runs by day</source>
        <translation>Duration of runs by day</translation>
    </message>
    <message>
        <source>Mean duration, s</source>
        <translation>Mean duration, s</translation>
    </message>
    <message>
        <source>mean duration</source>
        <translation>mean duration</translation>
    </message>
    <message>
        <source>values</source>
        <translation>values</translation>
    </message>
    <message>
        <source>least %1</source>
        <translation>least %1</translation>
    </message>
    <message>
        <source>most %1</source>
        <translation>most %1</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>Values</translation>
    </message>
    <message>
        <source>Outside</source>
        <translation>Outside</translation>
    </message>
    <message>
        <source>Least</source>
        <translation>Least</translation>
    </message>
    <message>
        <source>Most</source>
        <translation>Most</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Mean</translation>
    </message>
    <message>
        <source>Standard deviation</source>
        <translation>Standard deviation</translation>
    </message>
    <message>
        <source>Lower limit</source>
        <translation>Lower limit</translation>
    </message>
    <message>
        <source>Upper limit</source>
        <translation>Upper limit</translation>
    </message>
    <message>
        <source>Cpk</source>
        <translation>Cpk</translation>
    </message>
    <message>
        <source>Density</source>
        <translation>Density</translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1 in %2</translation>
    </message>
    <message>
        <source>mean %1</source>
        <translation>mean %1</translation>
    </message>
    <message>
        <source>Runs of the camera</source>
        <translation>Runs of the camera</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>Findings</translation>
    </message>
    <message numerus="yes">
        <source>%n runs</source>
        <translation>
            <numerusform>%n run</numerusform>
            <numerusform>%n runs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: failed in %2 of %n runs</source>
        <translation>
            <numerusform>%1: failed in %2 of %n run</numerusform>
            <numerusform>%1: failed in %2 of %n runs</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 (%2 of all so far)</source>
        <translation>%1 (%2 of all so far)</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>获取电池通信状态失败
</source>
        <translation>The battery link state could not be read
</translation>
    </message>
    <message>
        <source>相机电池通信NG
</source>
        <translation>Battery link NG
</translation>
    </message>
    <message>
        <source>相机电池通信OK
</source>
        <translation>Battery link OK
</translation>
    </message>
    <message>
        <source>voltage:%1V
</source>
        <translation>Voltage: %1 V
</translation>
    </message>
    <message>
        <source>electricity:%1mA
</source>
        <translation>Current: %1 mA
</translation>
    </message>
    <message>
        <source>temperature:%1℃
</source>
        <translation>Temperature: %1 ℃
</translation>
    </message>
    <message>
        <source>获取电池状态失败
</source>
        <translation>The battery status could not be read
</translation>
    </message>
    <message>
        <source>获取电池状态成功
</source>
        <translation>Battery status read
</translation>
    </message>
    <message>
        <source>electric quantity:%1%
</source>
        <translation>Charge level: %1%
</translation>
    </message>
    <message>
        <source>充电至满时间:%1min
</source>
        <translation>Charging time to full: %1 min
</translation>
    </message>
    <message>
        <source>放电至空时间:%1min
</source>
        <translation>Discharging time to empty: %1 min
</translation>
    </message>
    <message>
        <source>Sub_ID:0x%1
</source>
        <translation>Sub ID: 0x%1
</translation>
    </message>
    <message>
        <source>version Info:0x%1
</source>
        <translation>Version information: 0x%1
</translation>
    </message>
    <message>
        <source>software version:%1.%2.%3.%4
</source>
        <translation>Software version: %1.%2.%3.%4
</translation>
    </message>
    <message>
        <source>hardware version:%1.%2.%3.%4
</source>
        <translation>Hardware version: %1.%2.%3.%4
</translation>
    </message>
    <message>
        <source>electric quantity :%1%
</source>
        <translation>Charge level: %1%
</translation>
    </message>
    <message>
        <source>至空时间:%1min
</source>
        <translation>Time to empty: %1 min
</translation>
    </message>
    <message>
        <source>至满时间:%1min
</source>
        <translation>Time to full: %1 min
</translation>
    </message>
    <message>
        <source>设备类型:0x%1
</source>
        <translation>Device type: 0x%1
</translation>
    </message>
    <message>
        <source>电池固件信息:0x%1
</source>
        <translation>Battery firmware information: 0x%1
</translation>
    </message>
    <message>
        <source>电池硬件信息:0x%1
</source>
        <translation>Battery hardware information: 0x%1
</translation>
    </message>
    <message>
        <source>循环次数:%1
</source>
        <translation>Cycles: %1
</translation>
    </message>
    <message>
        <source>满电容量:%1mAh
</source>
        <translation>Full capacity: %1 mAh
</translation>
    </message>
    <message>
        <source>制造商:0x%1
</source>
        <translation>Manufacturer: 0x%1
</translation>
    </message>
    <message>
        <source>电池警告:%1
</source>
        <translation>Battery warnings: %1
</translation>
    </message>
    <message>
        <source>充电器状态:%1
</source>
        <translation>Charger: %1
</translation>
    </message>
    <message>
        <source>充电器未插入</source>
        <translation>not plugged in</translation>
    </message>
    <message>
        <source>充电器插入</source>
        <translation>plugged in</translation>
    </message>
    <message>
        <source>麦克风状态:%1
</source>
        <translation>Microphone: %1
</translation>
    </message>
    <message>
        <source>麦克风未插入</source>
        <translation>not plugged in</translation>
    </message>
    <message>
        <source>麦克风插入</source>
        <translation>plugged in</translation>
    </message>
    <message>
        <source>POGO_PIN状态:%1
</source>
        <translation>POGO pins: %1
</translation>
    </message>
    <message>
        <source>未插入外设</source>
        <translation>no accessory attached</translation>
    </message>
    <message>
        <source>已插入外设</source>
        <translation>accessory attached</translation>
    </message>
    <message>
        <source>获取电池信息失败
</source>
        <translation>The battery information could not be read
</translation>
    </message>
    <message>
        <source>获取电池信息成功
</source>
        <translation>Battery information read
</translation>
    </message>
    <message>
        <source>Battery connection</source>
        <translation>Battery connection</translation>
    </message>
    <message>
        <source>Battery status</source>
        <translation>Battery status</translation>
    </message>
    <message>
        <source>Battery Info</source>
        <translation>Battery information</translation>
    </message>
    <message>
        <source>Charge</source>
        <translation>Charge</translation>
    </message>
    <message>
        <source>获取相机视频流状态失败
</source>
        <translation>The video stream state could not be read
</translation>
    </message>
    <message>
        <source>相机视频流NG
</source>
        <translation>Video stream NG
</translation>
    </message>
    <message>
        <source>相机视频流OK
</source>
        <translation>Video stream OK
</translation>
    </message>
    <message>
        <source>获取相机MTF检测签名失败
</source>
        <translation>The signature of the MTF test could not be read
</translation>
    </message>
    <message>
        <source>相机MTF检测未签名
</source>
        <translation>The MTF test is not signed
</translation>
    </message>
    <message>
        <source>获取相机MTF检测数据失败
</source>
        <translation>The data of the MTF test could not be read
</translation>
    </message>
    <message>
        <source>获取相机MTF检测Crc校验值失败
</source>
        <translation>The CRC of the MTF test could not be read
</translation>
    </message>
    <message>
        <source>相机MTF测试Crc校验值有误
</source>
        <translation>The CRC of the MTF test is wrong
</translation>
    </message>
    <message>
        <source>相机MTF测试成功
</source>
        <translation>MTF test passed
</translation>
    </message>
    <message>
        <source>获取相机暗斑检测签名失败
</source>
        <translation>The signature of the dark spot test could not be read
</translation>
    </message>
    <message>
        <source>相机暗斑检测未签名
</source>
        <translation>The dark spot test is not signed
</translation>
    </message>
    <message>
        <source>获取相机暗斑检测数据失败
</source>
        <translation>The data of the dark spot test could not be read
</translation>
    </message>
    <message>
        <source>获取相机暗斑检测Crc校验值失败
</source>
        <translation>The CRC of the dark spot test could not be read
</translation>
    </message>
    <message>
        <source>相机暗斑检测Crc校验值有误
</source>
        <translation>The CRC of the dark spot test is wrong
</translation>
    </message>
    <message>
        <source>相机暗斑检测成功
</source>
        <translation>Dark spot test passed
</translation>
    </message>
    <message>
        <source>获取白平衡检测签名失败
</source>
        <translation>The signature of the white balance test could not be read
</translation>
    </message>
    <message>
        <source>相机白平衡检测未签名
</source>
        <translation>The white balance test is not signed
</translation>
    </message>
    <message>
        <source>获取相机白平衡检测数据失败
</source>
        <translation>The data of the white balance test could not be read
</translation>
    </message>
    <message>
        <source>获取相机白平衡检测Crc校验值失败
</source>
        <translation>The CRC of the white balance test could not be read
</translation>
    </message>
    <message>
        <source>相机白平衡检测Crc校验值有误
</source>
        <translation>The CRC of the white balance test is wrong
</translation>
    </message>
    <message>
        <source>相机白平衡检测成功
</source>
        <translation>White balance test passed
</translation>
    </message>
    <message>
        <source>获取Focus检测签名失败
</source>
        <translation>The signature of the focus test could not be read
</translation>
    </message>
    <message>
        <source>相机Focus检测未签名
</source>
        <translation>The focus test is not signed
</translation>
    </message>
    <message>
        <source>相机Focus检测成功
</source>
        <translation>Focus test passed
</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Video</translation>
    </message>
    <message>
        <source>Factory Check</source>
        <translation>Factory tests</translation>
    </message>
    <message>
        <source>获取云台主控通信状态失败
</source>
        <translation>The gimbal controller&apos;s link state could not be read
</translation>
    </message>
    <message>
        <source>云台主控通信失败
</source>
        <translation>Gimbal controller link NG
</translation>
    </message>
    <message>
        <source>云台主控通信OK
</source>
        <translation>Gimbal controller link OK
</translation>
    </message>
    <message>
        <source>获取Roll轴通信状态失败
</source>
        <translation>The roll axis link state could not be read
</translation>
    </message>
    <message>
        <source>Roll轴通信异常
</source>
        <translation>Roll axis link NG
</translation>
    </message>
    <message>
        <source>Roll轴通信OK
</source>
        <translation>Roll axis link OK
</translation>
    </message>
    <message>
        <source>获取Pitch轴通信状态失败
</source>
        <translation>The pitch axis link state could not be read
</translation>
    </message>
    <message>
        <source>Pitch轴通信异常
</source>
        <translation>Pitch axis link NG
</translation>
    </message>
    <message>
        <source>Pitch轴通信OK
</source>
        <translation>Pitch axis link OK
</translation>
    </message>
    <message>
        <source>获取Yaw轴通信状态失败
</source>
        <translation>The yaw axis link state could not be read
</translation>
    </message>
    <message>
        <source>Yaw轴通信异常
</source>
        <translation>Yaw axis link NG
</translation>
    </message>
    <message>
        <source>Yaw轴通信OK
</source>
        <translation>Yaw axis link OK
</translation>
    </message>
    <message>
        <source>Roll轴运动检测OK
</source>
        <translation>Roll axis motion OK
</translation>
    </message>
    <message>
        <source>Roll轴运动检测超时
</source>
        <translation>Roll axis motion timed out
</translation>
    </message>
    <message>
        <source>Roll轴运动检测NG
</source>
        <translation>Roll axis motion NG
</translation>
    </message>
    <message>
        <source>Pitch轴运动检测OK
</source>
        <translation>Pitch axis motion OK
</translation>
    </message>
    <message>
        <source>Pitch轴运动检测超时
</source>
        <translation>Pitch axis motion timed out
</translation>
    </message>
    <message>
        <source>Pitch轴运动检测NG
</source>
        <translation>Pitch axis motion NG
</translation>
    </message>
    <message>
        <source>Yaw轴运动检测OK
</source>
        <translation>Yaw axis motion OK
</translation>
    </message>
    <message>
        <source>Yaw轴运动检测超时
</source>
        <translation>Yaw axis motion timed out
</translation>
    </message>
    <message>
        <source>Main connection</source>
        <translation>Controller link</translation>
    </message>
    <message>
        <source>ROLL connection</source>
        <translation>Roll axis link</translation>
    </message>
    <message>
        <source>PITCH connection</source>
        <translation>Pitch axis link</translation>
    </message>
    <message>
        <source>YAW connection</source>
        <translation>Yaw axis link</translation>
    </message>
    <message>
        <source>Cation test</source>
        <translation>Motion test</translation>
    </message>
    <message>
        <source>获取相机镜头状态失败
</source>
        <translation>The lens state could not be read
</translation>
    </message>
    <message>
        <source>相机镜头连接失败
</source>
        <translation>Lens link NG
</translation>
    </message>
    <message>
        <source>相机通信正常
</source>
        <translation>Lens link OK
</translation>
    </message>
    <message>
        <source>Lens connection</source>
        <translation>Lens link</translation>
    </message>
    <message>
        <source>Lens Status</source>
        <translation>Lens status</translation>
    </message>
    <message>
        <source>it may come from another camera than that of the run</source>
        <translation>it may come from another camera than that of the run</translation>
    </message>
    <message>
        <source>the camera&apos;s archive could not be fetched</source>
        <translation>the camera&apos;s archive could not be fetched</translation>
    </message>
    <message>
        <source>the camera&apos;s shell did not answer</source>
        <translation>the camera&apos;s shell did not answer</translation>
    </message>
    <message>
        <source>log</source>
        <translation>log</translation>
    </message>
    <message>
        <source>private</source>
        <translation>private</translation>
    </message>
    <message>
        <source>dmesg</source>
        <translation>dmesg</translation>
    </message>
    <message>
        <source>pstree&amp;&amp;ps</source>
        <translation>pstree&amp;&amp;ps</translation>
    </message>
    <message>
        <source>ifconfig</source>
        <translation>ifconfig</translation>
    </message>
    <message>
        <source>kest_version</source>
        <translation>kest_version</translation>
    </message>
    <message>
        <source>netconf</source>
        <translation>netconf</translation>
    </message>
    <message>
        <source>iwDevAp0Scan</source>
        <translation>iwDevAp0Scan</translation>
    </message>
    <message>
        <source>mci_info</source>
        <translation>mci_info</translation>
    </message>
    <message>
        <source>sharefs</source>
        <translation>sharefs</translation>
    </message>
    <message>
        <source>获取工厂sensor检测标志位失败
</source>
        <translation>The sensor&apos;s factory test mark could not be read
</translation>
    </message>
    <message>
        <source>工厂sensor未检测
</source>
        <translation>The sensor has no factory test mark
</translation>
    </message>
    <message>
        <source>工厂sensor检测OK
</source>
        <translation>Sensor factory test OK
</translation>
    </message>
    <message>
        <source>获取云台主控板工厂检测标志位失败
</source>
        <translation>The gimbal main board&apos;s factory test mark could not be read
</translation>
    </message>
    <message>
        <source>云台主控板工厂未检测
</source>
        <translation>The gimbal main board has no factory test mark
</translation>
    </message>
    <message>
        <source>云台主控板工厂检测OK
</source>
        <translation>Gimbal main board factory test OK
</translation>
    </message>
    <message>
        <source>获取Roll轴电调板工厂检测标志位失败
</source>
        <translation>The roll axis driver board&apos;s factory test mark could not be read
</translation>
    </message>
    <message>
        <source>Roll轴电调板工厂未检测
</source>
        <translation>The roll axis driver board has no factory test mark
</translation>
    </message>
    <message>
        <source>Roll轴电调板工厂检测OK
</source>
        <translation>Roll axis driver board factory test OK
</translation>
    </message>
    <message>
        <source>获取Pitch轴电调板工厂检测标志位失败
</source>
        <translation>The pitch axis driver board&apos;s factory test mark could not be read
</translation>
    </message>
    <message>
        <source>Pitch轴电调板工厂未检测
</source>
        <translation>The pitch axis driver board has no factory test mark
</translation>
    </message>
    <message>
        <source>Pitch轴电调板工厂检测OK
</source>
        <translation>Pitch axis driver board factory test OK
</translation>
    </message>
    <message>
        <source>获取Yaw轴电调板工厂检测标志位失败
</source>
        <translation>The yaw axis driver board&apos;s factory test mark could not be read
</translation>
    </message>
    <message>
        <source>Yaw轴电调板工厂未检测
</source>
        <translation>The yaw axis driver board has no factory test mark
</translation>
    </message>
    <message>
        <source>Yaw轴电调板工厂检测OK
</source>
        <translation>Yaw axis driver board factory test OK
</translation>
    </message>
    <message>
        <source>获取电池工厂检测标志位失败
</source>
        <translation>The battery board&apos;s factory test mark could not be read
</translation>
    </message>
    <message>
        <source>电池工厂未检测
</source>
        <translation>The battery board has no factory test mark
</translation>
    </message>
    <message>
        <source>电池工厂检测OK
</source>
        <translation>Battery board factory test OK
</translation>
    </message>
    <message>
        <source>Lens driver</source>
        <translation>Lens driver</translation>
    </message>
    <message>
        <source>EEPROM</source>
        <translation>EEPROM</translation>
    </message>
    <message>
        <source>Gimbal Main</source>
        <translation>Gimbal main board</translation>
    </message>
    <message>
        <source>Gimbal ROLL</source>
        <translation>Gimbal roll driver</translation>
    </message>
    <message>
        <source>Gimbal PITCH</source>
        <translation>Gimbal pitch driver</translation>
    </message>
    <message>
        <source>Gimbal YAW</source>
        <translation>Gimbal yaw driver</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>Battery</translation>
    </message>
    <message>
        <source>Fan</source>
        <translation>Fan</translation>
    </message>
    <message>
        <source>Button</source>
        <translation>Button</translation>
    </message>
    <message>
        <source>audio test
</source>
        <translation>Audio test
</translation>
    </message>
    <message>
        <source>SD卡被拔出</source>
        <translation>The SD card has been removed</translation>
    </message>
    <message>
        <source>SD卡初始化中</source>
        <translation>The SD card is being initialised</translation>
    </message>
    <message>
        <source>SD卡初始化完成</source>
        <translation>The SD card is ready</translation>
    </message>
    <message>
        <source>SD卡格式化中</source>
        <translation>The SD card is being formatted</translation>
    </message>
    <message>
        <source>SD卡修复中</source>
        <translation>The SD card is being repaired</translation>
    </message>
    <message>
        <source>SD卡错误</source>
        <translation>SD card error</translation>
    </message>
    <message>
        <source>SD卡复用中</source>
        <translation>The SD card is used by another host</translation>
    </message>
    <message>
        <source>SD卡写保护中</source>
        <translation>The SD card is write-protected</translation>
    </message>
    <message>
        <source>SD卡满</source>
        <translation>The SD card is full</translation>
    </message>
    <message>
        <source>,错误原因:SD卡碎片严重
</source>
        <translation>; error: it is heavily fragmented
</translation>
    </message>
    <message>
        <source>,错误原因:SD卡簇错误
</source>
        <translation>; error: bad clusters
</translation>
    </message>
    <message>
        <source>,错误原因:SD卡文件系统错误
</source>
        <translation>; error: its file system is damaged
</translation>
    </message>
    <message>
        <source>,错误原因:SD卡低速卡
</source>
        <translation>; error: it is a slow card
</translation>
    </message>
    <message>
        <source>,错误原因:SD卡挂载失败
</source>
        <translation>; error: it could not be mounted
</translation>
    </message>
    <message>
        <source>,错误原因:SD卡存储系统错误
</source>
        <translation>; error: storage system error
</translation>
    </message>
    <message>
        <source>,错误原因:SD卡文件系统不支持
</source>
        <translation>; error: its file system is not supported
</translation>
    </message>
    <message>
        <source>,错误原因:SD卡修复文件失败
</source>
        <translation>; error: files could not be repaired
</translation>
    </message>
    <message>
        <source>获取TF卡状态失败
</source>
        <translation>The TF card&apos;s state could not be read
</translation>
    </message>
    <message>
        <source>获取TF卡使用状态失败
</source>
        <translation>The TF card&apos;s usage could not be read
</translation>
    </message>
    <message>
        <source>扇区大小:%1K
</source>
        <translation>Sector size: %1 K
</translation>
    </message>
    <message>
        <source>总内存:%1MB
</source>
        <translation>Total space: %1 MB
</translation>
    </message>
    <message>
        <source>可用内存:%1MB
</source>
        <translation>Available space: %1 MB
</translation>
    </message>
    <message>
        <source>已用内存:%1MB
</source>
        <translation>Used space: %1 MB
</translation>
    </message>
    <message>
        <source>mount SD Card faild
</source>
        <translation>The SD card&apos;s mounts could not be read
</translation>
    </message>
    <message>
        <source>SD卡未挂载
</source>
        <translation>The SD card is not mounted
</translation>
    </message>
    <message>
        <source>获取SD卡信息失败
</source>
        <translation>The SD card&apos;s information could not be read
</translation>
    </message>
    <message>
        <source>SD Card OK
</source>
        <translation>SD card OK
</translation>
    </message>
    <message>
        <source>警告:非高SD速卡
</source>
        <translation>Warning: not a high-speed SD card
</translation>
    </message>
    <message>
        <source>Use condition</source>
        <translation>Usage</translation>
    </message>
    <message>
        <source>Literacy rate</source>
        <translation>Read and write speed</translation>
    </message>
    <message>
        <source>获取Wifi信息失败.</source>
        <translation>The WiFi information could not be read.</translation>
    </message>
    <message>
        <source>获取Mac地址失败.</source>
        <translation>The MAC address could not be read.</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Camera</translation>
    </message>
    <message>
        <source>Gimbal</source>
        <translation>Gimbal</translation>
    </message>
    <message>
        <source>Lens</source>
        <translation>Lens</translation>
    </message>
    <message>
        <source>TF Card</source>
        <translation>TF card</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Audio</translation>
    </message>
    <message>
        <source>PCBA</source>
        <translation>PCBA</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Log</translation>
    </message>
    <message>
        <source>电池组电压过低</source>
        <translation>; pack voltage too low</translation>
    </message>
    <message>
        <source>电池组电压过高</source>
        <translation>; pack voltage too high</translation>
    </message>
    <message>
        <source>充电过程中电流超过阈值 1</source>
        <translation>; charging current above threshold 1</translation>
    </message>
    <message>
        <source>充电过程中电流超过阈值 2</source>
        <translation>; charging current above threshold 2</translation>
    </message>
    <message>
        <source>放电过程中电流超过阈值 1</source>
        <translation>; discharging current above threshold 1</translation>
    </message>
    <message>
        <source>放电过程中电流超过阈值 2</source>
        <translation>; discharging current above threshold 2</translation>
    </message>
    <message>
        <source>放电过载</source>
        <translation>; overload while discharging</translation>
    </message>
    <message>
        <source>充电过程中出现短路现象</source>
        <translation>; short circuit while charging</translation>
    </message>
    <message>
        <source>放电过程中出现短路现象</source>
        <translation>; short circuit while discharging</translation>
    </message>
    <message>
        <source>充电过程中温度过高</source>
        <translation>; too hot while charging</translation>
    </message>
    <message>
        <source>放电过程中温度过高</source>
        <translation>; too hot while discharging</translation>
    </message>
    <message>
        <source>电池出现补偿型电压过低现象</source>
        <translation>; compensated voltage too low</translation>
    </message>
    <message>
        <source>FET 温度过高</source>
        <translation>; FET too hot</translation>
    </message>
    <message>
        <source>预充电过程超时</source>
        <translation>; precharging timed out</translation>
    </message>
    <message>
        <source>延时预充电超时</source>
        <translation>; delayed precharging timed out</translation>
    </message>
    <message>
        <source>充电过程超时</source>
        <translation>; charging timed out</translation>
    </message>
    <message>
        <source>延时充电超时</source>
        <translation>; delayed charging timed out</translation>
    </message>
    <message>
        <source>电池过充</source>
        <translation>; overcharged</translation>
    </message>
    <message>
        <source>电池过充电流型警告</source>
        <translation>; overcharging: current warning</translation>
    </message>
    <message>
        <source>电池过充电压型警告</source>
        <translation>; overcharging: voltage warning</translation>
    </message>
    <message>
        <source>电池过预充电电流型警告</source>
        <translation>; over-precharging: current warning</translation>
    </message>
    <message>
        <source>充电过程中温度过低</source>
        <translation>; too cold while charging</translation>
    </message>
    <message>
        <source>放电过程中温度过低</source>
        <translation>; too cold while discharging</translation>
    </message>
    <message>
        <source>%1: not read (%2)</source>
        <translation>%1: not read (%2)</translation>
    </message>
    <message>
        <source>状态良好</source>
        <translation>in good order</translation>
    </message>
    <message>
        <source>Pitch轴运动检测NG
</source>
        <comment>of the yaw axis</comment>
        <translation>Yaw axis motion NG
</translation>
    </message>
</context>
<context>
    <name>Questions</name>
    <message>
        <source>&quot;%1&quot; cannot be asked for; known are %2</source>
        <translation>&quot;%1&quot; cannot be asked for; known are %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; stands there twice</source>
        <translation>&quot;%1&quot; is named twice</translation>
    </message>
</context>
<context>
    <name>Record</name>
    <message>
        <source>longer than %1 MiB</source>
        <translation>longer than %1 MiB</translation>
    </message>
    <message>
        <source>%1 is missing</source>
        <translation>%1 is missing</translation>
    </message>
    <message>
        <source>%1 cannot be read</source>
        <translation>%1 cannot be read</translation>
    </message>
    <message>
        <source>not JSON: %1 at byte %2</source>
        <translation>not JSON: %1 at byte %2</translation>
    </message>
    <message>
        <source>not a JSON object</source>
        <translation>not a JSON object</translation>
    </message>
    <message>
        <source>schema %1 is not known</source>
        <translation>schema %1 is not known</translation>
    </message>
    <message>
        <source>passed</source>
        <translation>passed</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>failed</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>warning</translation>
    </message>
    <message>
        <source>notTested</source>
        <translation>not tested</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>stopped</translation>
    </message>
    <message>
        <source>error</source>
        <translation>error</translation>
    </message>
    <message>
        <source>answered</source>
        <translation>answered</translation>
    </message>
    <message>
        <source>noReply</source>
        <translation>not answered</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>refused</translation>
    </message>
    <message>
        <source>wrongSize</source>
        <translation>answered in the wrong size</translation>
    </message>
</context>
<context>
    <name>RecordOutput</name>
    <message>
        <source>standard output</source>
        <translation>standard output</translation>
    </message>
</context>
<context>
    <name>ReportTexts</name>
    <message>
        <source>en</source>
        <comment>the language of the page, as HTML names it</comment>
        <translation>en</translation>
    </message>
    <message>
        <source>No data</source>
        <translation>No data</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>(none)</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 to %2</translation>
    </message>
    <message>
        <source>No runs</source>
        <translation>No runs</translation>
    </message>
    <message>
        <source>%1, station %2</source>
        <translation>%1, station %2</translation>
    </message>
    <message>
        <source>%1, batch %2</source>
        <translation>%1, batch %2</translation>
    </message>
    <message>
        <source>%1, firmware %2</source>
        <translation>%1, firmware %2</translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation>Cameras</translation>
    </message>
    <message>
        <source>First-pass yield</source>
        <translation>First-pass yield</translation>
    </message>
    <message>
        <source>Final yield</source>
        <translation>Final yield</translation>
    </message>
    <message>
        <source>Mean duration</source>
        <translation>Mean duration</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>Runs</translation>
    </message>
    <message>
        <source>passed</source>
        <translation>passed</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>failed</translation>
    </message>
    <message>
        <source>stopped or no answer</source>
        <translation>stopped or no answer</translation>
    </message>
    <message>
        <source>Passed</source>
        <translation>Passed</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Failed</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Other</translation>
    </message>
    <message>
        <source>First-pass</source>
        <translation>First-pass</translation>
    </message>
    <message>
        <source>Final</source>
        <translation>Final</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Item</translation>
    </message>
    <message>
        <source>Tested</source>
        <translation>Tested</translation>
    </message>
    <message>
        <source>Warned</source>
        <translation>Warned</translation>
    </message>
    <message>
        <source>Failed of tested</source>
        <translation>Failed of tested</translation>
    </message>
    <message>
        <source>n = %1, mean %2, standard deviation %3, from %4 to %5, limit %6..%7, Cpk %8, %9 outside their limit</source>
        <translation>n = %1, mean %2, standard deviation %3, from %4 to %5, limit %6..%7, Cpk %8, %9 outside their limit</translation>
    </message>
    <message>
        <source>%1; %2 far off to the left and %3 to the right are not drawn</source>
        <translation>%1; %2 far off to the left and %3 to the right are not drawn</translation>
    </message>
    <message>
        <source>%1 (warning)</source>
        <translation>%1 (warning)</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Camera</translation>
    </message>
    <message>
        <source>Serial</source>
        <translation>Serial</translation>
    </message>
    <message>
        <source>Last run</source>
        <translation>Last run</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>Station</translation>
    </message>
    <message>
        <source>Batch</source>
        <translation>Batch</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>Firmware</translation>
    </message>
    <message>
        <source>Failure: value (limit)</source>
        <translation>Failure: value (limit)</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min %2 s</source>
        <translation>%1 min %2 s</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 h %2 min</translation>
    </message>
    <message>
        <source>Test report, %1</source>
        <translation>Test report, %1</translation>
    </message>
    <message>
        <source>Test report</source>
        <translation>Test report</translation>
    </message>
    <message>
        <source>From %1, made %2 by %3</source>
        <translation>From %1, made %2 by %3</translation>
    </message>
    <message>
        <source>There are no runs in this period.</source>
        <translation>There are no runs in this period.</translation>
    </message>
    <message>
        <source>Yields count cameras, each on the day and at the station of its first judged run: by how that run ended (first-pass), and by how its last one ended (final).</source>
        <translation>Yields count cameras, each on the day and at the station of its first judged run: by how that run ended (first-pass), and by how its last one ended (final).</translation>
    </message>
    <message>
        <source>Yield over time</source>
        <translation>Yield over time</translation>
    </message>
    <message>
        <source>What fails</source>
        <translation>What fails</translation>
    </message>
    <message>
        <source>Measurements with limits</source>
        <translation>Measurements with limits</translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1 in %2</translation>
    </message>
    <message>
        <source>%1 in %2, in %3</source>
        <translation>%1 in %2, in %3</translation>
    </message>
    <message>
        <source>Stations</source>
        <translation>Stations</translation>
    </message>
    <message>
        <source>Batches</source>
        <translation>Batches</translation>
    </message>
    <message>
        <source>Failed cameras (%1)</source>
        <translation>Failed cameras (%1)</translation>
    </message>
    <message>
        <source>Every camera passed in its last judged run.</source>
        <translation>Every camera passed in its last judged run.</translation>
    </message>
</context>
<context>
    <name>RunComparison</name>
    <message>
        <source>station</source>
        <translation>station</translation>
    </message>
    <message>
        <source>location</source>
        <translation>location</translation>
    </message>
    <message>
        <source>operator</source>
        <translation>operator</translation>
    </message>
    <message>
        <source>batch</source>
        <translation>batch</translation>
    </message>
    <message>
        <source>serial</source>
        <translation>serial</translation>
    </message>
    <message>
        <source>program version</source>
        <translation>program version</translation>
    </message>
    <message>
        <source>firmware</source>
        <translation>firmware</translation>
    </message>
    <message>
        <source>wifi name</source>
        <translation>WiFi name</translation>
    </message>
    <message>
        <source>link</source>
        <translation>link</translation>
    </message>
    <message>
        <source>plan</source>
        <translation>plan</translation>
    </message>
    <message>
        <source>not run</source>
        <translation>not run</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>not measured</source>
        <translation>not measured</translation>
    </message>
</context>
<context>
    <name>RunPlan</name>
    <message>
        <source>&quot;%1&quot; is not an item&apos;s number</source>
        <translation>&quot;%1&quot; is not an item&apos;s number</translation>
    </message>
    <message>
        <source>the range &quot;%1&quot; runs backwards</source>
        <translation>the range &quot;%1&quot; runs backwards</translation>
    </message>
    <message>
        <source>there is no item %1; the items are %2</source>
        <translation>there is no item %1; the items are %2</translation>
    </message>
    <message>
        <source>item %1 stands there twice</source>
        <translation>item %1 is named twice</translation>
    </message>
    <message>
        <source>no item is named</source>
        <translation>no item is named</translation>
    </message>
    <message>
        <source>unknown component &quot;%1&quot;; known are all, or any of: %2</source>
        <translation>unknown component &quot;%1&quot;; known are all, or any of: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: the component&apos;s items are named twice</source>
        <translation>&quot;%1&quot;: the component&apos;s items are named twice</translation>
    </message>
    <message>
        <source>there is no such component; known are %1</source>
        <translation>there is no such component; known are %1</translation>
    </message>
</context>
<context>
    <name>RunRecorder</name>
    <message>
        <source>the program was closed</source>
        <translation>the program was closed</translation>
    </message>
    <message>
        <source>something else than a known item failed</source>
        <translation>something else than a known item failed</translation>
    </message>
</context>
<context>
    <name>RunTableModel</name>
    <message>
        <source>Begin</source>
        <translation>Begin</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>Outcome</translation>
    </message>
    <message>
        <source>MAC</source>
        <translation>MAC</translation>
    </message>
    <message>
        <source>Serial</source>
        <translation>Serial</translation>
    </message>
    <message>
        <source>Finding</source>
        <translation>Finding</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>Station</translation>
    </message>
    <message>
        <source>Batch</source>
        <translation>Batch</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>Firmware</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Duration</translation>
    </message>
    <message>
        <source>Operator</source>
        <translation>Operator</translation>
    </message>
</context>
<context>
    <name>RunView</name>
    <message>
        <source>Outside</source>
        <translation>Outside</translation>
    </message>
    <message>
        <source>%1, %2 bytes, SHA-256 %3</source>
        <translation>%1, %2 bytes, SHA-256 %3</translation>
    </message>
    <message>
        <source>Open &amp;Folder</source>
        <translation>Open &amp;Folder</translation>
    </message>
    <message>
        <source>&amp;Copy Run</source>
        <translation>&amp;Copy Run</translation>
    </message>
    <message>
        <source>The run</source>
        <translation>The run</translation>
    </message>
    <message>
        <source>Components, items and measurements of the run</source>
        <translation>Components, items and measurements of the run</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Item</translation>
    </message>
    <message>
        <source>Verdict</source>
        <translation>Verdict</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Value</translation>
    </message>
    <message>
        <source>Limits</source>
        <translation>Limits</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Duration</translation>
    </message>
    <message>
        <source>What the item reported</source>
        <translation>What the item reported</translation>
    </message>
    <message>
        <source>This run is not in the store any more.</source>
        <translation>This run is not in the store any more.</translation>
    </message>
    <message>
        <source>No run is chosen.</source>
        <translation>No run is chosen.</translation>
    </message>
    <message>
        <source>Outcome: %1</source>
        <translation>Outcome: %1</translation>
    </message>
    <message>
        <source>MAC</source>
        <translation>MAC</translation>
    </message>
    <message>
        <source>Serial</source>
        <translation>Serial</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>Station</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Location</translation>
    </message>
    <message>
        <source>Operator</source>
        <translation>Operator</translation>
    </message>
    <message>
        <source>Batch</source>
        <translation>Batch</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>Firmware</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Reason</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>This run has no folder below %1: which folder was chosen for results at its station?</source>
        <translation>This run has no folder below %1: which folder was chosen for results at its station?</translation>
    </message>
    <message>
        <source>There is no program to show %1</source>
        <translation>There is no program to show %1</translation>
    </message>
    <message>
        <source>This run has no folder below %1</source>
        <translation>This run has no folder below %1</translation>
    </message>
    <message>
        <source>The run is in the clipboard</source>
        <translation>The run is in the clipboard</translation>
    </message>
</context>
<context>
    <name>Safeguards</name>
    <message>
        <source>no component is ticked</source>
        <translation>no component is ticked</translation>
    </message>
    <message>
        <source>no camera is connected</source>
        <translation>no camera is connected</translation>
    </message>
    <message>
        <source>the camera&apos;s MAC address is unknown</source>
        <translation>the camera&apos;s MAC address is unknown</translation>
    </message>
</context>
<context>
    <name>Settings</name>
    <message>
        <source>no IPv4 address</source>
        <translation>not an IPv4 address</translation>
    </message>
    <message>
        <source>not a hexadecimal number of at most 64 bits</source>
        <translation>not a hexadecimal number of at most 64 bits</translation>
    </message>
    <message>
        <source>neither true nor false</source>
        <translation>neither true nor false</translation>
    </message>
    <message>
        <source>this link is not used</source>
        <translation>this link is not used</translation>
    </message>
    <message>
        <source>no camera can be found</source>
        <translation>no camera can be found</translation>
    </message>
    <message>
        <source>the station cannot log in to the camera&apos;s shell</source>
        <translation>the station cannot log in to the camera&apos;s shell</translation>
    </message>
    <message>
        <source>the camera&apos;s archives cannot be fetched</source>
        <translation>the camera&apos;s archives cannot be fetched</translation>
    </message>
    <message>
        <source>the records do not tell it</source>
        <translation>the records do not tell it</translation>
    </message>
    <message>
        <source>this log of the camera cannot be fetched</source>
        <translation>this log of the camera cannot be fetched</translation>
    </message>
    <message>
        <source>no TCP port</source>
        <translation>not a TCP port</translation>
    </message>
    <message>
        <source>the camera&apos;s WiFi name and passphrase stay unknown</source>
        <translation>the camera&apos;s WiFi name and passphrase stay unknown</translation>
    </message>
    <message>
        <source>the camera&apos;s MAC address stays unknown</source>
        <translation>the camera&apos;s MAC address stays unknown</translation>
    </message>
    <message>
        <source>a healthy camera is expected to report 0 in every status bit</source>
        <translation>a healthy camera is expected to report 0 in every status bit</translation>
    </message>
    <message>
        <source>no status bit is examined, and every camera passes</source>
        <translation>no status bit is examined, and every camera passes</translation>
    </message>
    <message>
        <source>the safeguards are off</source>
        <translation>the safeguards are off</translation>
    </message>
    <message>
        <source>no run begins by itself</source>
        <translation>no run begins by itself</translation>
    </message>
    <message>
        <source>there are no sounds</source>
        <translation>there are no sounds</translation>
    </message>
    <message>
        <source>the records tell the host&apos;s name</source>
        <translation>the records tell the host&apos;s name</translation>
    </message>
    <message>
        <source>no run is kept in a history</source>
        <translation>no run is kept in a history</translation>
    </message>
    <message>
        <source>not of the form postgresql://user@host/database, or with a password, which belongs into .pgpass</source>
        <translation>not of the form postgresql://user@host/database, or with a password, which belongs into .pgpass</translation>
    </message>
    <message>
        <source>the runs stay at this station</source>
        <translation>the runs stay at this station</translation>
    </message>
    <message>
        <source>cannot be read</source>
        <translation>cannot be read</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>missing</translation>
    </message>
    <message>
        <source>neither en nor zh_CN</source>
        <translation>neither en nor zh_CN</translation>
    </message>
    <message>
        <source>the texts are partly English, partly Chinese</source>
        <translation>the texts are partly English, partly Chinese</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>empty</translation>
    </message>
    <message>
        <source>a comma stands outside of double quotes</source>
        <translation>a comma stands outside of double quotes</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is %2</source>
        <translation>&quot;%1&quot; is %2</translation>
    </message>
    <message>
        <source>some lines are no settings</source>
        <translation>some lines are not settings</translation>
    </message>
    <message>
        <source>these lines are ignored</source>
        <translation>these lines are ignored</translation>
    </message>
</context>
<context>
    <name>StationHistory</name>
    <message>
        <source>passed</source>
        <translation>passed</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>failed</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>stopped</translation>
    </message>
    <message>
        <source>without a verdict</source>
        <translation>without a verdict</translation>
    </message>
    <message>
        <source>Not tested before</source>
        <translation>Not tested before</translation>
    </message>
    <message>
        <source>Runs so far: %1
The last one: %2, %3</source>
        <translation>Runs so far: %1
The last one: %2, %3</translation>
    </message>
    <message>
        <source>History of this camera</source>
        <translation>History of this camera</translation>
    </message>
    <message>
        <source>%1 cannot be started</source>
        <translation>%1 cannot be started</translation>
    </message>
</context>
<context>
    <name>StatisticsView</name>
    <message>
        <source>Yield by day</source>
        <translation>Yield by day</translation>
    </message>
    <message>
        <source>Failures by item</source>
        <translation>Failures by item</translation>
    </message>
    <message>
        <source>Measurement</source>
        <translation>Measurement</translation>
    </message>
    <message>
        <source>Duration of runs</source>
        <translation>Duration of runs</translation>
    </message>
    <message>
        <source>All together</source>
        <translation>All together</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>Station</translation>
    </message>
    <message>
        <source>Batch</source>
        <translation>Batch</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>Firmware</translation>
    </message>
    <message>
        <source>What the plot shows</source>
        <translation>What the plot shows</translation>
    </message>
    <message>
        <source>Copy Pict&amp;ure</source>
        <translation>Copy Pict&amp;ure</translation>
    </message>
    <message>
        <source>Save Picture &amp;As…</source>
        <translation>Save Picture &amp;As…</translation>
    </message>
    <message>
        <source>&amp;Diagram</source>
        <translation>&amp;Diagram</translation>
    </message>
    <message>
        <source>B&amp;y</source>
        <translation>B&amp;y</translation>
    </message>
    <message>
        <source>Of the latest %1 values.</source>
        <translation>Of the latest %1 values.</translation>
    </message>
    <message>
        <source>MAC, serial, outcome and finding do not count here.</source>
        <translation>MAC, serial, outcome and finding do not count here.</translation>
    </message>
    <message>
        <source>The picture is in the clipboard</source>
        <translation>The picture is in the clipboard</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>Save Picture</translation>
    </message>
    <message>
        <source>Pictures (*.png)</source>
        <translation>Pictures (*.png)</translation>
    </message>
    <message>
        <source>Saved: %1</source>
        <translation>Saved: %1</translation>
    </message>
    <message>
        <source>%1 was not saved: %2</source>
        <translation>%1 was not saved: %2</translation>
    </message>
    <message numerus="yes">
        <source>Left out: %n groups with fewer runs or without a name.</source>
        <translation>
            <numerusform>Left out: %n group with fewer runs or without a name.</numerusform>
            <numerusform>Left out: %n groups with fewer runs or without a name.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StoreAddress</name>
    <message>
        <source>not of the form postgresql://user@host/database</source>
        <translation>not of the form postgresql://user@host/database</translation>
    </message>
    <message>
        <source>a password does not belong here: put it into .pgpass</source>
        <translation>a password does not belong here: put it into .pgpass</translation>
    </message>
    <message>
        <source>holds an option that cannot be passed on</source>
        <translation>holds an option that cannot be passed on</translation>
    </message>
</context>
<context>
    <name>StoreError</name>
    <message>
        <source>another program is writing to it</source>
        <translation>another program is writing to it</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>the disk is full</translation>
    </message>
    <message>
        <source>the file is damaged</source>
        <translation>the file is damaged</translation>
    </message>
    <message>
        <source>it was made by a newer version of this program</source>
        <translation>it was made by a newer version of this program</translation>
    </message>
    <message>
        <source>the file is a database of another program</source>
        <translation>the file is a database of another program</translation>
    </message>
    <message>
        <source>it cannot be opened or written to</source>
        <translation>it cannot be opened or written to</translation>
    </message>
    <message>
        <source>not there</source>
        <translation>not there</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>the server cannot be reached</translation>
    </message>
    <message>
        <source>the record cannot be kept</source>
        <translation>the record cannot be kept</translation>
    </message>
    <message>
        <source>it does not work</source>
        <translation>it does not work</translation>
    </message>
</context>
<context>
    <name>UnattendedRun</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>NG</source>
        <translation>NG</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>warning</translation>
    </message>
    <message>
        <source>not tested</source>
        <translation>not tested</translation>
    </message>
    <message>
        <source>The camera is connected, but its MAC address is unknown</source>
        <translation>The camera is connected, but its MAC address is unknown</translation>
    </message>
    <message>
        <source>No camera found</source>
        <translation>No camera found</translation>
    </message>
    <message>
        <source>%1 after %2 s
</source>
        <translation>%1 after %2 s
</translation>
    </message>
    <message>
        <source>%1%2Result: %3

%4</source>
        <translation>%1%2Result: %3

%4</translation>
    </message>
    <message>
        <source>Mac: %1
</source>
        <translation>MAC: %1
</translation>
    </message>
    <message>
        <source>The screenshot could not be saved: %1: %2
</source>
        <translation>The screenshot could not be saved: %1: %2
</translation>
    </message>
</context>
<context>
    <name>UnitView</name>
    <message>
        <source>Runs of the camera, the latest one first</source>
        <translation>Runs of the camera, the latest one first</translation>
    </message>
    <message>
        <source>What changed</source>
        <translation>What changed</translation>
    </message>
    <message>
        <source>Runs of the camera along time</source>
        <translation>Runs of the camera along time</translation>
    </message>
    <message>
        <source>The chosen run names no camera.</source>
        <translation>The chosen run names no camera.</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>Begin</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>Outcome</translation>
    </message>
    <message>
        <source>Finding</source>
        <translation>Finding</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Reason</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>Station</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>Firmware</translation>
    </message>
    <message>
        <source>Operator</source>
        <translation>Operator</translation>
    </message>
    <message>
        <source>What</source>
        <translation>What</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Before</translation>
    </message>
    <message>
        <source>After</source>
        <translation>After</translation>
    </message>
    <message>
        <source>What changed from its last pass (%1) to its first failure after it (%2):</source>
        <translation>What changed from its last pass (%1) to its first failure after it (%2):</translation>
    </message>
    <message numerus="yes">
        <source>%1: %n runs</source>
        <translation>
            <numerusform>%1: %n run</numerusform>
            <numerusform>%1: %n runs</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>languageOption</name>
    <message>
        <source>Speak this language: en or zh_CN (default: by option.ini).</source>
        <translation>Speak this language: en or zh_CN (default: by option.ini).</translation>
    </message>
    <message>
        <source>language</source>
        <translation>language</translation>
    </message>
    <message>
        <source>--language: &quot;%1&quot; is neither en nor zh_CN</source>
        <translation>--language: &quot;%1&quot; is neither en nor zh_CN</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Another KestDetector is running on this PC. Two of them would take each other&apos;s replies from the camera.</source>
        <translation>Another KestDetector is running on this PC. Two of them would take each other&apos;s replies from the camera.</translation>
    </message>
    <message>
        <source>Try --help.</source>
        <translation>Try --help.</translation>
    </message>
</context>
<context>
    <name>wholeFile</name>
    <message>
        <source>Not a regular file</source>
        <translation>Not a regular file</translation>
    </message>
</context>
</TS>
