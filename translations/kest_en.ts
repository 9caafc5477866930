<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>CommandLine</name>
    <message>
        <source>--%1: &quot;%2&quot; is not a whole number of %3 or more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--%1 does not go with --each</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--%1: &quot;%2&quot; is no file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--json and --junit name the same file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Run these components unattended (comma-separated, or &quot;all&quot;), print the result and leave: %1. Items by their numbers: camera:0+1,gimbal:0-4,log.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>components</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save the logs below this folder (default: beside the program).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wait this long for the camera (default: 30).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>seconds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save a picture of the window after the run (PNG).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Number of runs (default: 1).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>count</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Run once for each camera that connects, until the program is closed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save the record of the run as JSON; of several runs, a line each. With &quot;-&quot; it is all that goes to standard output, and the other texts go to standard error.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save the record of the runs as a JUnit report (XML).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Who runs it, for the record (default: by option.ini).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The camera&apos;s batch, likewise.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>batch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The camera&apos;s serial number, for the record.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close the window after this time, whatever goes on, as a hand would; the exit code is then 4.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>milliseconds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show this text.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the program&apos;s version.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Self-test station for WiFi gimbal cameras. Without options it opens its window.
Exit codes of an unattended run: 0 passed, 1 failed, 2 wrong usage, malformed settings or a second station, 3 no camera in time or lost or changed during a run, 4 stopped or closed before the end, 5 not everything was saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unexpected argument &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--%1 goes with --run</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--connect-timeout: at most %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--screenshot: &quot;%1&quot; does not end in .png</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HistoryWriter</name>
    <message>
        <source>a run could be kept nowhere: %1; %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KestDetectorUI</name>
    <message>
        <source>Kest自检工具V1.0.0</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current unit:Camera</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current item:Camera</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NA</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Component test result:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Camera</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gimbal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Battery</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TF Card</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lens</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Audio</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PCBA</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select inspection unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Log</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Path:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>select save path</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unselect All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Event log</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Overall</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>KestDetector_V%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Total:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wifi:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wifi: %1 </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Password:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Password: %1 </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mac:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mac: %1 </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connect State:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connect State: %1 </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current unit:%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current item:%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop the run	Esc</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NG</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>warning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not tested</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Path:%1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LabelQuestion</name>
    <message>
        <source>Serial number:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Operator:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Batch:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No such serial number</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Limits</name>
    <message>
        <source>not a range such as 3.6..4.35, ..45 or 30000..</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a range needs a bound</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the lower bound is above the upper one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not a list of texts such as 1.2.3|1.2.4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no such measurement</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Notices</name>
    <message>
        <source>option.ini: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not started: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>waiting for the camera&apos;s shell</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the run was stopped</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>nothing was tested</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>another camera came during the run</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the camera was lost during the run</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not saved: %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>history: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>queries that had to be sent again: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>results: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>获取电池通信状态失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>相机电池通信NG
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>相机电池通信OK
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>voltage:%1V
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>electricity:%1mA
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>temperature:%1℃
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取电池状态失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取电池状态成功
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>electric quantity:%1%
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>充电至满时间:%1min
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>放电至空时间:%1min
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sub_ID:0x%1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>version Info:0x%1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>software version:%1.%2.%3.%4
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>hardware version:%1.%2.%3.%4
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>electric quantity :%1%
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>至空时间:%1min
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>至满时间:%1min
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>设备类型:0x%1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>电池固件信息:0x%1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>电池硬件信息:0x%1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>循环次数:%1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>满电容量:%1mAh
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>制造商:0x%1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>电池警告:%1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>充电器状态:%1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>充电器未插入</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>充电器插入</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>麦克风状态:%1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>麦克风未插入</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>麦克风插入</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>POGO_PIN状态:%1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>未插入外设</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>已插入外设</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取电池信息失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取电池信息成功
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Battery connection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Battery status</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Battery Info</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Charge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取相机视频流状态失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>相机视频流NG
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>相机视频流OK
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取相机MTF检测签名失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>相机MTF检测未签名
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取相机MTF检测数据失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取相机MTF检测Crc校验值失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>相机MTF测试Crc校验值有误
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>相机MTF测试成功
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取相机暗斑检测签名失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>相机暗斑检测未签名
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取相机暗斑检测数据失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取相机暗斑检测Crc校验值失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>相机暗斑检测Crc校验值有误
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>相机暗斑检测成功
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取白平衡检测签名失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>相机白平衡检测未签名
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取相机白平衡检测数据失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取相机白平衡检测Crc校验值失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>相机白平衡检测Crc校验值有误
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>相机白平衡检测成功
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取Focus检测签名失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>相机Focus检测未签名
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>相机Focus检测成功
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Video</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Factory Check</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取云台主控通信状态失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>云台主控通信失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>云台主控通信OK
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取Roll轴通信状态失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Roll轴通信异常
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Roll轴通信OK
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取Pitch轴通信状态失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pitch轴通信异常
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pitch轴通信OK
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取Yaw轴通信状态失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yaw轴通信异常
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yaw轴通信OK
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Roll轴运动检测OK
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Roll轴运动检测超时
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Roll轴运动检测NG
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pitch轴运动检测OK
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pitch轴运动检测超时
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pitch轴运动检测NG
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yaw轴运动检测OK
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yaw轴运动检测超时
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Main connection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ROLL connection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PITCH connection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>YAW connection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cation test</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取相机镜头状态失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>相机镜头连接失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>相机通信正常
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lens connection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lens Status</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it may come from another camera than that of the run</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the camera&apos;s archive could not be fetched</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the camera&apos;s shell did not answer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>log</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>private</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>dmesg</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pstree&amp;&amp;ps</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ifconfig</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>kest_version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>netconf</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>iwDevAp0Scan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mci_info</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sharefs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取工厂sensor检测标志位失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>工厂sensor未检测
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>工厂sensor检测OK
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取云台主控板工厂检测标志位失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>云台主控板工厂未检测
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>云台主控板工厂检测OK
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取Roll轴电调板工厂检测标志位失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Roll轴电调板工厂未检测
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Roll轴电调板工厂检测OK
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取Pitch轴电调板工厂检测标志位失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pitch轴电调板工厂未检测
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pitch轴电调板工厂检测OK
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取Yaw轴电调板工厂检测标志位失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yaw轴电调板工厂未检测
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yaw轴电调板工厂检测OK
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取电池工厂检测标志位失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>电池工厂未检测
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>电池工厂检测OK
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lens driver</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>EEPROM</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gimbal Main</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gimbal ROLL</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gimbal PITCH</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gimbal YAW</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Battery</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>audio test
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SD卡被拔出</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SD卡初始化中</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SD卡初始化完成</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SD卡格式化中</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SD卡修复中</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SD卡错误</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SD卡复用中</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SD卡写保护中</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SD卡满</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>,错误原因:SD卡碎片严重
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>,错误原因:SD卡簇错误
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>,错误原因:SD卡文件系统错误
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>,错误原因:SD卡低速卡
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>,错误原因:SD卡挂载失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>,错误原因:SD卡存储系统错误
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>,错误原因:SD卡文件系统不支持
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>,错误原因:SD卡修复文件失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取TF卡状态失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取TF卡使用状态失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>扇区大小:%1K
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>总内存:%1MB
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>可用内存:%1MB
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>已用内存:%1MB
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mount SD Card faild
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SD卡未挂载
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取SD卡信息失败
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SD Card OK
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>警告:非高SD速卡
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use condition</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Literacy rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取Wifi信息失败.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>获取Mac地址失败.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Camera</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gimbal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lens</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TF Card</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Audio</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PCBA</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Log</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>电池组电压过低</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>电池组电压过高</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>充电过程中电流超过阈值 1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>充电过程中电流超过阈值 2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>放电过程中电流超过阈值 1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>放电过程中电流超过阈值 2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>放电过载</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>充电过程中出现短路现象</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>放电过程中出现短路现象</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>充电过程中温度过高</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>放电过程中温度过高</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>电池出现补偿型电压过低现象</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FET 温度过高</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>预充电过程超时</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>延时预充电超时</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>充电过程超时</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>延时充电超时</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>电池过充</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>电池过充电流型警告</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>电池过充电压型警告</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>电池过预充电电流型警告</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>充电过程中温度过低</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>放电过程中温度过低</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: not read (%2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>状态良好</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Questions</name>
    <message>
        <source>&quot;%1&quot; cannot be asked for; known are %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; stands there twice</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RecordOutput</name>
    <message>
        <source>standard output</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RunPlan</name>
    <message>
        <source>&quot;%1&quot; is not an item&apos;s number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the range &quot;%1&quot; runs backwards</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no item %1; the items are %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>item %1 stands there twice</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no item is named</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown component &quot;%1&quot;; known are all, or any of: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot;: the component&apos;s items are named twice</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no such component; known are %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RunRecorder</name>
    <message>
        <source>the program was closed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>something else than a known item failed</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Safeguards</name>
    <message>
        <source>no component is ticked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no camera is connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the camera&apos;s MAC address is unknown</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Settings</name>
    <message>
        <source>no IPv4 address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not a hexadecimal number of at most 64 bits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>neither true nor false</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>this link is not used</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no camera can be found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the station cannot log in to the camera&apos;s shell</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the camera&apos;s archives cannot be fetched</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the records do not tell it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>this log of the camera cannot be fetched</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no TCP port</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the camera&apos;s WiFi name and passphrase stay unknown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the camera&apos;s MAC address stays unknown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a healthy camera is expected to report 0 in every status bit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no status bit is examined, and every camera passes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the safeguards are off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no run begins by itself</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there are no sounds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the records tell the host&apos;s name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no run is kept in a history</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not of the form postgresql://user@host/database, or with a password, which belongs into .pgpass</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the runs stay at this station</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot be read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>missing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>neither en nor zh_CN</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the texts are partly English, partly Chinese</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StationHistory</name>
    <message>
        <source>passed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>stopped</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>without a verdict</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not tested before</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Runs so far: %1
The last one: %2, %3</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StoreAddress</name>
    <message>
        <source>not of the form postgresql://user@host/database</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a password does not belong here: put it into .pgpass</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>holds an option that cannot be passed on</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StoreError</name>
    <message>
        <source>another program is writing to it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file is damaged</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it was made by a newer version of this program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file is a database of another program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it cannot be opened or written to</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not there</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the record cannot be kept</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it does not work</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UnattendedRun</name>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>NG</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>warning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not tested</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The camera is connected, but its MAC address is unknown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No camera found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 after %2 s
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1%2Result: %3

%4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mac: %1
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The screenshot could not be saved: %1: %2
</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>languageOption</name>
    <message>
        <source>Speak this language: en or zh_CN (default: by option.ini).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>language</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--language: &quot;%1&quot; is neither en nor zh_CN</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Another KestDetector is running on this PC. Two of them would take each other&apos;s replies from the camera.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Try --help.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>wholeFile</name>
    <message>
        <source>Not a regular file</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
