<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Chart</name>
    <message>
        <source>There are no plots in this program: it was built without Qwt. The table tells the same.</source>
        <translation>本程序没有图表：构建时没有Qwt。表格的内容与图表相同。</translation>
    </message>
    <message>
        <source>No data</source>
        <translation>没有数据</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>--%1: &quot;%2&quot; is not a whole number of %3 or more</source>
        <translation>--%1：“%2”不是大于或等于%3的整数</translation>
    </message>
    <message>
        <source>--%1 does not go with --each</source>
        <translation>--%1不能与--each一起使用</translation>
    </message>
    <message>
        <source>--%1: &quot;%2&quot; is no file</source>
        <translation>--%1：“%2”不是文件</translation>
    </message>
    <message>
        <source>--json and --junit name the same file</source>
        <translation>--json和--junit指定了同一个文件</translation>
    </message>
    <message>
        <source>Run these components unattended (comma-separated, or &quot;all&quot;), print the result and leave: %1. Items by their numbers: camera:0+1,gimbal:0-4,log.</source>
        <translation>无人值守地检测这些部件（用逗号分隔，或用“all”），输出结果后退出：%1。可按编号指定项目：camera:0+1,gimbal:0-4,log。</translation>
    </message>
    <message>
        <source>components</source>
        <translation>部件</translation>
    </message>
    <message>
        <source>Save the logs below this folder (default: beside the program).</source>
        <translation>日志保存在此文件夹下（默认：程序所在的文件夹）。</translation>
    </message>
    <message>
        <source>folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>Wait this long for the camera (default: 30).</source>
        <translation>等待相机的时间（默认：30）。</translation>
    </message>
    <message>
        <source>seconds</source>
        <translation>秒</translation>
    </message>
    <message>
        <source>Save a picture of the window after the run (PNG).</source>
        <translation>检测结束后保存窗口截图（PNG）。</translation>
    </message>
    <message>
        <source>file</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Number of runs (default: 1).</source>
        <translation>检测次数（默认：1）。</translation>
    </message>
    <message>
        <source>count</source>
        <translation>次数</translation>
    </message>
    <message>
        <source>Run once for each camera that connects, until the program is closed.</source>
        <translation>每台连接的相机检测一次，直到程序关闭。</translation>
    </message>
    <message>
        <source>Save the record of the run as JSON; of several runs, a line each. With &quot;-&quot; it is all that goes to standard output, and the other texts go to standard error.</source>
        <translation>将检测记录保存为JSON；多次检测时每次一行。用“-”时标准输出只含记录，其他文字输出到标准错误。</translation>
    </message>
    <message>
        <source>Save the record of the runs as a JUnit report (XML).</source>
        <translation>将检测记录保存为JUnit报告（XML）。</translation>
    </message>
    <message>
        <source>Who runs it, for the record (default: by option.ini).</source>
        <translation>记录中的操作员（默认：按option.ini）。</translation>
    </message>
    <message>
        <source>name</source>
        <translation>姓名</translation>
    </message>
    <message>
        <source>The camera&apos;s batch, likewise.</source>
        <translation>相机的批次，同上。</translation>
    </message>
    <message>
        <source>batch</source>
        <translation>批次</translation>
    </message>
    <message>
        <source>The camera&apos;s serial number, for the record.</source>
        <translation>记录中的相机序列号。</translation>
    </message>
    <message>
        <source>number</source>
        <translation>号码</translation>
    </message>
    <message>
        <source>Close the window after this time, whatever goes on, as a hand would; the exit code is then 4.</source>
        <translation>经过此时间后关闭窗口，如同手动关闭，无论正在做什么；此时退出码为4。</translation>
    </message>
    <message>
        <source>milliseconds</source>
        <translation>毫秒</translation>
    </message>
    <message>
        <source>Show this text.</source>
        <translation>显示此帮助。</translation>
    </message>
    <message>
        <source>Show the program&apos;s version.</source>
        <translation>显示程序版本。</translation>
    </message>
    <message>
        <source>Self-test station for WiFi gimbal cameras. Without options it opens its window.
Exit codes of an unattended run: 0 passed, 1 failed, 2 wrong usage, malformed settings or a second station, 3 no camera in time or lost or changed during a run, 4 stopped or closed before the end, 5 not everything was saved.</source>
        <translation>WiFi云台相机的自检工作站。不带选项时打开窗口。
无人值守检测的退出码：0 通过，1 未通过，2 用法错误、设置有误或已有另一个工作站在运行，3 未及时找到相机或相机在检测期间断开或被更换，4 在结束前被停止或关闭，5 未能保存全部内容。</translation>
    </message>
    <message>
        <source>Unexpected argument &quot;%1&quot;</source>
        <translation>多余的参数“%1”</translation>
    </message>
    <message>
        <source>--%1 goes with --run</source>
        <translation>--%1须与--run一起使用</translation>
    </message>
    <message>
        <source>--connect-timeout: at most %1</source>
        <translation>--connect-timeout：最大为%1</translation>
    </message>
    <message>
        <source>--screenshot: &quot;%1&quot; does not end in .png</source>
        <translation>--screenshot：“%1”不以.png结尾</translation>
    </message>
    <message>
        <source>--serial: &quot;%1&quot; does not match Station/serialPattern=&quot;%2&quot;</source>
        <translation>--serial：“%1”不符合Station/serialPattern=&quot;%2&quot;</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>All time</source>
        <translation>全部时间</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>今天</translation>
    </message>
    <message>
        <source>7 days</source>
        <translation>7天</translation>
    </message>
    <message>
        <source>30 days</source>
        <translation>30天</translation>
    </message>
    <message>
        <source>365 days</source>
        <translation>365天</translation>
    </message>
    <message>
        <source>From … to …</source>
        <translation>从…到…</translation>
    </message>
    <message>
        <source>&amp;MAC</source>
        <translation>&amp;MAC</translation>
    </message>
    <message>
        <source>60:60:1F or 60601f</source>
        <translation>60:60:1F或60601f</translation>
    </message>
    <message>
        <source>Se&amp;rial</source>
        <translation>序列号(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Outcome</source>
        <translation>结果(&amp;O)</translation>
    </message>
    <message>
        <source>All</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>F&amp;inding</source>
        <translation>问题项(&amp;I)</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>清除(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Period</source>
        <translation>时段(&amp;P)</translation>
    </message>
    <message>
        <source>From</source>
        <translation>从</translation>
    </message>
    <message>
        <source>to</source>
        <translation>到</translation>
    </message>
    <message>
        <source>S&amp;tation</source>
        <translation>工作站(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Batch</source>
        <translation>批次(&amp;B)</translation>
    </message>
    <message>
        <source>Firm&amp;ware</source>
        <translation>固件(&amp;W)</translation>
    </message>
</context>
<context>
    <name>History</name>
    <message>
        <source>Passed</source>
        <translation>通过</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>未通过</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>已停止</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>出错</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Not tested</source>
        <translation>未检测</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
</context>
<context>
    <name>HistoryTexts</name>
    <message numerus="yes">
        <source>%n of these runs are not on the server yet; &quot;forward&quot; sends them, --unsent removes them all the same</source>
        <translation>
            <numerusform>其中%n次检测尚未发送到服务器；“forward”可发送，--unsent 则仍予删除</numerusform>
        </translation>
    </message>
    <message>
        <source>prune</source>
        <translation>清理</translation>
    </message>
    <message>
        <source>%1 removed</source>
        <translation>已删除%1次检测</translation>
    </message>
    <message>
        <source>%1 names no store: give --store, or file= in its section [History]</source>
        <translation>%1没有指定历史库：请使用 --store，或在 [History] 一节中设置 file=</translation>
    </message>
    <message>
        <source>standard output</source>
        <translation>标准输出</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>无法写入%1: %2</translation>
    </message>
    <message>
        <source>run %1: %2</source>
        <translation>检测%1: %2</translation>
    </message>
    <message>
        <source>export</source>
        <translation>导出</translation>
    </message>
    <message>
        <source>no such runs</source>
        <translation>没有符合条件的检测</translation>
    </message>
    <message>
        <source>%1 cannot be made</source>
        <translation>无法创建%1</translation>
    </message>
    <message>
        <source>%1 names no server: server= in its section [History]</source>
        <translation>%1没有指定服务器：请在 [History] 一节中设置 server=</translation>
    </message>
    <message>
        <source>forward</source>
        <translation>发送</translation>
    </message>
    <message>
        <source>%1 sent</source>
        <translation>已发送%1次检测</translation>
    </message>
    <message>
        <source>the latest runs, the latest first</source>
        <translation>最近的检测，最新的在前</translation>
    </message>
    <message>
        <source>a run with all that it found</source>
        <translation>一次检测及其全部结果</translation>
    </message>
    <message>
        <source>every run of a camera, and what changed when it began to fail</source>
        <translation>一台相机的所有检测，以及开始不通过时发生的变化</translation>
    </message>
    <message>
        <source>yields, and what fails</source>
        <translation>良率及未通过项目</translation>
    </message>
    <message>
        <source>the same as a page or on paper</source>
        <translation>同样的内容，输出为网页或PDF</translation>
    </message>
    <message>
        <source>records, the oldest first</source>
        <translation>检测记录，最早的在前</translation>
    </message>
    <message>
        <source>records in JSON, and folders that earlier runs have left</source>
        <translation>JSON记录，以及以前检测留下的文件夹</translation>
    </message>
    <message>
        <source>what the store holds, and what the server does not have yet</source>
        <translation>历史库的内容，以及尚未发送到服务器的部分</translation>
    </message>
    <message>
        <source>send to the server what it does not have yet, now</source>
        <translation>立即把尚未发送的检测发送到服务器</translation>
    </message>
    <message>
        <source>remove all runs before a day, and give the space back</source>
        <translation>删除某日之前的所有检测并释放空间</translation>
    </message>
    <message>
        <source>A store&apos;s file, or postgresql://user@host/db (default: that of option.ini).</source>
        <translation>历史库文件，或postgresql://user@host/db（默认：option.ini中指定的）。</translation>
    </message>
    <message>
        <source>The camera&apos;s MAC address, or its beginning.</source>
        <translation>相机的MAC地址或其开头部分。</translation>
    </message>
    <message>
        <source>The serial number, or its beginning.</source>
        <translation>序列号或其开头部分。</translation>
    </message>
    <message>
        <source>From this day on: 2026-11-21, or 7d for the last seven days.</source>
        <translation>从该日起：2026-11-21，或用7d表示最近七天。</translation>
    </message>
    <message>
        <source>Up to this day, which is included.</source>
        <translation>到该日为止（含该日）。</translation>
    </message>
    <message>
        <source>Runs of this station.</source>
        <translation>该工作站的检测。</translation>
    </message>
    <message>
        <source>Runs of this batch.</source>
        <translation>该批次的检测。</translation>
    </message>
    <message>
        <source>Runs of cameras with this firmware.</source>
        <translation>使用该固件的相机的检测。</translation>
    </message>
    <message>
        <source>Only runs that failed.</source>
        <translation>仅未通过的检测。</translation>
    </message>
    <message>
        <source>Only runs in which this item failed or warned, such as battery.info.</source>
        <translation>仅该项目未通过或警告的检测，如battery.info。</translation>
    </message>
    <message>
        <source>The most runs (list: 100, export: all; 0: all).</source>
        <translation>最多的检测次数（list：100，export：全部；0：全部）。</translation>
    </message>
    <message>
        <source>As JSON.</source>
        <translation>以JSON输出。</translation>
    </message>
    <message>
        <source>As comma-separated values, for spreadsheets.</source>
        <translation>以逗号分隔值（CSV）输出，供电子表格使用。</translation>
    </message>
    <message>
        <source>As JUnit reports, one file a run.</source>
        <translation>以JUnit报告输出，每次检测一个文件。</translation>
    </message>
    <message>
        <source>Into this file (JUnit: this folder), not to standard output.</source>
        <translation>写入该文件（JUnit：该文件夹），而不是标准输出。</translation>
    </message>
    <message>
        <source>Window: the folder that was chosen for results at the station.</source>
        <translation>窗口：在工作站上选定的结果文件夹。</translation>
    </message>
    <message>
        <source>The first day whose runs stay.</source>
        <translation>从该日起的检测予以保留。</translation>
    </message>
    <message>
        <source>Also runs that the server does not have yet.</source>
        <translation>包括尚未发送到服务器的检测。</translation>
    </message>
    <message>
        <source>Keeps and finds the runs of KestDetector. Without a command it opens its window. Commands:</source>
        <translation>保存和查找KestDetector的检测。不带命令时打开窗口。命令：</translation>
    </message>
    <message>
        <source>Exit codes: 0 done, 1 nothing found or not everything taken in, 2 wrong usage, 3 store, file or server failed, 130 interrupted.</source>
        <translation>退出码：0 完成，1 未找到或未能全部导入，2 用法错误，3 历史库、文件或服务器出错，130 被中断。</translation>
    </message>
    <message>
        <source>--%1 does not go with %2</source>
        <translation>--%1 不能用于%2</translation>
    </message>
    <message>
        <source>--%1 is given twice</source>
        <translation>--%1 重复出现</translation>
    </message>
    <message>
        <source>Unexpected argument &quot;%1&quot;</source>
        <translation>多余的参数“%1”</translation>
    </message>
    <message>
        <source>%1 wants %2</source>
        <translation>%1需要%2</translation>
    </message>
    <message>
        <source>--%1: &quot;%2&quot; is no day such as 2026-11-21 or 7d</source>
        <translation>--%1：“%2”不是日期，应如2026-11-21或7d</translation>
    </message>
    <message>
        <source>--since lies behind --until</source>
        <translation>--since 晚于 --until</translation>
    </message>
    <message>
        <source>prune wants --before</source>
        <translation>prune需要 --before</translation>
    </message>
    <message>
        <source>--item: &quot;%1&quot; is no key such as battery.info</source>
        <translation>--item：“%1”不是项目名，应如battery.info</translation>
    </message>
    <message>
        <source>--limit: &quot;%1&quot; is not a whole number of 0 or more</source>
        <translation>--limit：“%1”不是大于或等于0的整数</translation>
    </message>
    <message>
        <source>Only one of --json, --csv and --junit</source>
        <translation>--json、--csv 和 --junit 只能选一个</translation>
    </message>
    <message>
        <source>--junit wants --out with a folder</source>
        <translation>--junit 需要 --out 指定文件夹</translation>
    </message>
    <message>
        <source>report wants --out with a file that ends in .html or .pdf</source>
        <translation>report需要 --out 指定以.html或.pdf结尾的文件</translation>
    </message>
    <message>
        <source>What to do.</source>
        <translation>要执行的命令。</translation>
    </message>
    <message>
        <source>Show this text.</source>
        <translation>显示本说明。</translation>
    </message>
    <message>
        <source>Show the program&apos;s version.</source>
        <translation>显示程序版本。</translation>
    </message>
    <message>
        <source>--%1 wants a command</source>
        <translation>--%1 需要一个命令</translation>
    </message>
    <message>
        <source>There is no command &quot;%1&quot;</source>
        <translation>没有命令“%1”</translation>
    </message>
    <message>
        <source>import</source>
        <translation>导入</translation>
    </message>
    <message>
        <source>%1 added, %2 already there, %3 refused</source>
        <translation>新增%1，已存在%2，拒绝%3</translation>
    </message>
    <message>
        <source>run %1 has no time</source>
        <translation>检测%1没有时间</translation>
    </message>
    <message>
        <source>%1: no DetectorLog.txt in folders such as 2024-05-06_60601F0A5F2A</source>
        <translation>%1: 在形如2024-05-06_60601F0A5F2A的文件夹中没有DetectorLog.txt</translation>
    </message>
    <message>
        <source>larger than %1 MiB</source>
        <translation>大于%1 MiB</translation>
    </message>
    <message>
        <source>names no component</source>
        <translation>其中没有任何部件</translation>
    </message>
    <message numerus="yes">
        <source>%1: %n lines are not understood</source>
        <translation>
            <numerusform>%1: 有%n行无法识别</numerusform>
        </translation>
    </message>
    <message>
        <source>its record is not there</source>
        <translation>其记录不存在</translation>
    </message>
    <message>
        <source>there is no run &quot;%1&quot;</source>
        <translation>没有检测“%1”</translation>
    </message>
    <message>
        <source>there are several runs that begin with &quot;%1&quot;</source>
        <translation>有多次检测以“%1”开头</translation>
    </message>
    <message>
        <source>no runs of &quot;%1&quot;</source>
        <translation>没有“%1”的检测</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is the beginning of several cameras: %2, %3, ...</source>
        <translation>“%1”是多台相机的开头：%2、%3等</translation>
    </message>
    <message>
        <source>no runs in this period</source>
        <translation>该时段内没有检测</translation>
    </message>
    <message>
        <source>never</source>
        <translation>从未</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Store</source>
        <translation>历史库</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>检测次数</translation>
    </message>
    <message>
        <source>Queued</source>
        <translation>待发送</translation>
    </message>
    <message>
        <source>Last sent</source>
        <translation>上次发送</translation>
    </message>
    <message>
        <source>Last error</source>
        <translation>上次错误</translation>
    </message>
    <message>
        <source>report</source>
        <translation>报告</translation>
    </message>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1及另外%2项</translation>
    </message>
    <message>
        <source>OUTSIDE</source>
        <translation>超限</translation>
    </message>
    <message>
        <source>request %1</source>
        <translation>请求%1</translation>
    </message>
    <message>
        <source>%1 (code %2)</source>
        <translation>%1（代码%2）</translation>
    </message>
    <message numerus="yes">
        <source>%1, %n attempts</source>
        <translation>
            <numerusform>%1，尝试%n次</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1，%2</translation>
    </message>
    <message>
        <source>%1: %2 (%3)</source>
        <translation>%1: %2（%3）</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>（无）</translation>
    </message>
    <message>
        <source>RUNS</source>
        <translation>次数</translation>
    </message>
    <message>
        <source>PASSED</source>
        <translation>通过</translation>
    </message>
    <message>
        <source>FAILED</source>
        <translation>未通过</translation>
    </message>
    <message>
        <source>OTHER</source>
        <translation>其他</translation>
    </message>
    <message>
        <source>CAMERAS</source>
        <translation>相机数</translation>
    </message>
    <message>
        <source>FIRST-PASS</source>
        <translation>一次通过率</translation>
    </message>
    <message>
        <source>FINAL</source>
        <translation>最终良率</translation>
    </message>
    <message>
        <source>RUN</source>
        <translation>检测</translation>
    </message>
    <message>
        <source>BEGIN</source>
        <translation>开始时间</translation>
    </message>
    <message>
        <source>OUTCOME</source>
        <translation>结果</translation>
    </message>
    <message>
        <source>MAC</source>
        <translation>MAC</translation>
    </message>
    <message>
        <source>SERIAL</source>
        <translation>序列号</translation>
    </message>
    <message>
        <source>STATION</source>
        <translation>工作站</translation>
    </message>
    <message>
        <source>BATCH</source>
        <translation>批次</translation>
    </message>
    <message>
        <source>FIRMWARE</source>
        <translation>固件</translation>
    </message>
    <message>
        <source>DURATION</source>
        <translation>用时</translation>
    </message>
    <message>
        <source>FAILURE</source>
        <translation>未通过项目</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>检测</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>结果</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>原因</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>开始时间</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>用时</translation>
    </message>
    <message>
        <source>Serial</source>
        <translation>序列号</translation>
    </message>
    <message>
        <source>WiFi name</source>
        <translation>WiFi名称</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>连接方式</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>固件</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>工作站</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Operator</source>
        <translation>操作员</translation>
    </message>
    <message>
        <source>Batch</source>
        <translation>批次</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>程序版本</translation>
    </message>
    <message>
        <source>WHAT</source>
        <translation>变化内容</translation>
    </message>
    <message>
        <source>LAST PASS</source>
        <translation>最后一次通过</translation>
    </message>
    <message>
        <source>FIRST FAILURE</source>
        <translation>首次未通过</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>时段</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1至%2</translation>
    </message>
    <message>
        <source>%1: %2 passed, %3 failed, %4 stopped, %5 without answer</source>
        <translation>%1：通过%2，未通过%3，停止%4，无应答%5</translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation>相机数</translation>
    </message>
    <message>
        <source>First-pass</source>
        <translation>一次通过率</translation>
    </message>
    <message>
        <source>Final</source>
        <translation>最终良率</translation>
    </message>
    <message>
        <source>ITEM</source>
        <translation>项目</translation>
    </message>
    <message>
        <source>SO FAR</source>
        <translation>累计</translation>
    </message>
    <message>
        <source>WARNED</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>TESTED</source>
        <translation>已测</translation>
    </message>
    <message>
        <source>DAY</source>
        <translation>日期</translation>
    </message>
    <message>
        <source>Try --help.</source>
        <translation>请参阅 --help。</translation>
    </message>
    <message>
        <source>there is no display for the window, and a command is missing</source>
        <translation>没有可显示窗口的屏幕，也没有给出命令</translation>
    </message>
</context>
<context>
    <name>HistoryWindow</name>
    <message>
        <source>%1 – History</source>
        <translation>%1 – 检测历史</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>检测</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>相机</translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation>统计</translation>
    </message>
    <message>
        <source>Try A&amp;gain</source>
        <translation>重试(&amp;G)</translation>
    </message>
    <message>
        <source>Runs, the latest one first</source>
        <translation>检测记录，最新的在最前</translation>
    </message>
    <message>
        <source>&amp;History</source>
        <translation>历史(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Search</source>
        <translation>搜索(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Clear Filters</source>
        <translation>清除筛选(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Refresh</source>
        <translation>刷新(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>Ru&amp;n</source>
        <translation>检测(&amp;N)</translation>
    </message>
    <message>
        <source>Open &amp;Folder</source>
        <translation>打开文件夹(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Copy Run</source>
        <translation>复制检测记录(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>查看(&amp;V)</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>放大(&amp;I)</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>缩小(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Whole Plot</source>
        <translation>整个图表(&amp;W)</translation>
    </message>
    <message>
        <source>Copy &amp;Picture</source>
        <translation>复制图片(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Save Picture…</source>
        <translation>保存图片(&amp;S)…</translation>
    </message>
    <message numerus="yes">
        <source>%Ln runs so far</source>
        <translation>
            <numerusform>目前%Ln次检测</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln runs</source>
        <translation>
            <numerusform>%Ln次检测</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HistoryWriter</name>
    <message>
        <source>a run could be kept nowhere: %1; %2</source>
        <translation>一次检测的记录无处保存：%1；%2</translation>
    </message>
</context>
<context>
    <name>KestDetectorUI</name>
    <message>
        <source>Kest自检工具V1.0.0</source>
        <translation>Kest自检工具V1.0.0</translation>
    </message>
    <message>
        <source>Current unit:Camera</source>
        <translation>当前部件：相机</translation>
    </message>
    <message>
        <source>Current item:Camera</source>
        <translation>当前项目：相机</translation>
    </message>
    <message>
        <source>NA</source>
        <translation>NA</translation>
    </message>
    <message>
        <source>Component test result:</source>
        <translation>部件检测结果：</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>相机</translation>
    </message>
    <message>
        <source>Gimbal</source>
        <translation>云台</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>电池</translation>
    </message>
    <message>
        <source>TF Card</source>
        <translation>TF卡</translation>
    </message>
    <message>
        <source>Lens</source>
        <translation>镜头</translation>
    </message>
    <message>
        <source>Fan</source>
        <translation>风扇</translation>
    </message>
    <message>
        <source>Button</source>
        <translation>按键</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>音频</translation>
    </message>
    <message>
        <source>PCBA</source>
        <translation>PCBA</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>Select inspection unit</source>
        <translation>选择检测部件</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>日志</translation>
    </message>
    <message>
        <source>Path:</source>
        <translation>路径：</translation>
    </message>
    <message>
        <source>select save path</source>
        <translation>选择保存路径</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>Unselect All</source>
        <translation>全不选</translation>
    </message>
    <message>
        <source>Event log</source>
        <translation>事件日志</translation>
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
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>Overall</source>
        <translation>总体结果</translation>
    </message>
    <message>
        <source>KestDetector_V%1</source>
        <translation>KestDetector_V%1</translation>
    </message>
    <message>
        <source>Total:</source>
        <translation>总进度：</translation>
    </message>
    <message>
        <source>Current:</source>
        <translation>当前：</translation>
    </message>
    <message>
        <source>Wifi:</source>
        <translation>WiFi：</translation>
    </message>
    <message>
        <source>Wifi: %1 </source>
        <translation>WiFi：%1 </translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>密码：</translation>
    </message>
    <message>
        <source>Password: %1 </source>
        <translation>密码：%1 </translation>
    </message>
    <message>
        <source>Mac:</source>
        <translation>MAC：</translation>
    </message>
    <message>
        <source>Mac: %1 </source>
        <translation>MAC：%1 </translation>
    </message>
    <message>
        <source>Connect State:</source>
        <translation>连接状态：</translation>
    </message>
    <message>
        <source>Connect State: %1 </source>
        <translation>连接状态：%1 </translation>
    </message>
    <message>
        <source>Current unit:%1</source>
        <translation>当前部件：%1</translation>
    </message>
    <message>
        <source>Current item:%1</source>
        <translation>当前项目：%1</translation>
    </message>
    <message>
        <source>connected</source>
        <translation>已连接</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>未连接</translation>
    </message>
    <message>
        <source>Stop the run	Esc</source>
        <translation>停止检测	Esc</translation>
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
        <translation>警告</translation>
    </message>
    <message>
        <source>not tested</source>
        <translation>未检测</translation>
    </message>
    <message>
        <source>Path:%1</source>
        <translation>路径：%1</translation>
    </message>
</context>
<context>
    <name>LabelQuestion</name>
    <message>
        <source>Serial number:</source>
        <translation>序列号：</translation>
    </message>
    <message>
        <source>Operator:</source>
        <translation>操作员：</translation>
    </message>
    <message>
        <source>Batch:</source>
        <translation>批次：</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>No such serial number</source>
        <translation>序列号无效</translation>
    </message>
</context>
<context>
    <name>Limits</name>
    <message>
        <source>not a range such as 3.6..4.35, ..45 or 30000..</source>
        <translation>不是3.6..4.35、..45或30000..形式的范围</translation>
    </message>
    <message>
        <source>a range needs a bound</source>
        <translation>范围至少需要一个界限</translation>
    </message>
    <message>
        <source>the lower bound is above the upper one</source>
        <translation>下限高于上限</translation>
    </message>
    <message>
        <source>not a list of texts such as 1.2.3|1.2.4</source>
        <translation>不是1.2.3|1.2.4形式的文本列表</translation>
    </message>
    <message>
        <source>there is no such measurement</source>
        <translation>没有此测量值</translation>
    </message>
</context>
<context>
    <name>Notices</name>
    <message>
        <source>option.ini: %1</source>
        <translation>option.ini：%1</translation>
    </message>
    <message>
        <source>not started: %1</source>
        <translation>未开始：%1</translation>
    </message>
    <message>
        <source>waiting for the camera&apos;s shell</source>
        <translation>正在等待相机的命令行</translation>
    </message>
    <message>
        <source>the run was stopped</source>
        <translation>检测已停止</translation>
    </message>
    <message>
        <source>nothing was tested</source>
        <translation>没有检测任何部件</translation>
    </message>
    <message>
        <source>another camera came during the run</source>
        <translation>检测期间换成了另一台相机</translation>
    </message>
    <message>
        <source>the camera was lost during the run</source>
        <translation>检测期间与相机失去连接</translation>
    </message>
    <message>
        <source>not saved: %1: %2</source>
        <translation>未保存：%1：%2</translation>
    </message>
    <message>
        <source>history: %1</source>
        <translation>历史记录：%1</translation>
    </message>
    <message>
        <source>queries that had to be sent again: %1</source>
        <translation>重新发送的查询数：%1</translation>
    </message>
    <message>
        <source>results: %1</source>
        <translation>结果：%1</translation>
    </message>
</context>
<context>
    <name>Plots</name>
    <message>
        <source>first-pass yield</source>
        <translation>一次通过率</translation>
    </message>
    <message>
        <source>final yield</source>
        <translation>最终良率</translation>
    </message>
    <message>
        <source>runs</source>
        <translation>检测次数</translation>
    </message>
    <message>
        <source>%1 runs (%2 passed, %3 failed, %4 stopped, %5 errors) of %6 cameras. First-pass yield %7, final yield %8</source>
        <translation>检测%1次（通过%2，未通过%3，已停止%4，出错%5），相机%6台。一次通过率%7，最终良率%8</translation>
    </message>
    <message>
        <source>Yield by day</source>
        <translation>每日良率</translation>
    </message>
    <message>
        <source>Yield of cameras</source>
        <translation>相机良率</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>日期</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>检测次数</translation>
    </message>
    <message>
        <source>Passed</source>
        <translation>通过</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>未通过</translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation>相机数</translation>
    </message>
    <message>
        <source>First-pass yield</source>
        <translation>一次通过率</translation>
    </message>
    <message>
        <source>Final yield</source>
        <translation>最终良率</translation>
    </message>
    <message>
        <source>Failures by item</source>
        <translation>各项目未通过次数（帕累托图）</translation>
    </message>
    <message>
        <source>Failed runs</source>
        <translation>未通过次数</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>项目</translation>
    </message>
    <message>
        <source>Ran</source>
        <translation>已测</translation>
    </message>
    <message>
        <source>Warned</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Failed of those that ran</source>
        <translation>不良率</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>未通过</translation>
    </message>
    <message>
        <source>Duration of runs by day</source>
        <translation>每日检测用时</translation>
    </message>
    <message>
        <source>Mean duration, s</source>
        <translation>平均用时（秒）</translation>
    </message>
    <message>
        <source>mean duration</source>
        <translation>平均用时</translation>
    </message>
    <message>
        <source>values</source>
        <translation>数值</translation>
    </message>
    <message>
        <source>least %1</source>
        <translation>下限%1</translation>
    </message>
    <message>
        <source>most %1</source>
        <translation>上限%1</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>数值个数</translation>
    </message>
    <message>
        <source>Outside</source>
        <translation>超限</translation>
    </message>
    <message>
        <source>Least</source>
        <translation>最小值</translation>
    </message>
    <message>
        <source>Most</source>
        <translation>最大值</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>均值</translation>
    </message>
    <message>
        <source>Standard deviation</source>
        <translation>标准差</translation>
    </message>
    <message>
        <source>Lower limit</source>
        <translation>下限</translation>
    </message>
    <message>
        <source>Upper limit</source>
        <translation>上限</translation>
    </message>
    <message>
        <source>Cpk</source>
        <translation>Cpk</translation>
    </message>
    <message>
        <source>Density</source>
        <translation>密度</translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>mean %1</source>
        <translation>均值%1</translation>
    </message>
    <message>
        <source>Runs of the camera</source>
        <translation>该相机的检测</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>问题项数</translation>
    </message>
    <message numerus="yes">
        <source>%n runs</source>
        <translation>
            <numerusform>%n次检测</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: failed in %2 of %n runs</source>
        <translation>
            <numerusform>%1：%n次检测中%2次未通过</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 (%2 of all so far)</source>
        <translation>%1（累计占%2）</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>获取电池通信状态失败
</source>
        <translation>获取电池通信状态失败
</translation>
    </message>
    <message>
        <source>相机电池通信NG
</source>
        <translation>相机电池通信NG
</translation>
    </message>
    <message>
        <source>相机电池通信OK
</source>
        <translation>相机电池通信OK
</translation>
    </message>
    <message>
        <source>voltage:%1V
</source>
        <translation>电压：%1V
</translation>
    </message>
    <message>
        <source>electricity:%1mA
</source>
        <translation>电流：%1mA
</translation>
    </message>
    <message>
        <source>temperature:%1℃
</source>
        <translation>温度：%1℃
</translation>
    </message>
    <message>
        <source>获取电池状态失败
</source>
        <translation>获取电池状态失败
</translation>
    </message>
    <message>
        <source>获取电池状态成功
</source>
        <translation>获取电池状态成功
</translation>
    </message>
    <message>
        <source>electric quantity:%1%
</source>
        <translation>电量：%1%
</translation>
    </message>
    <message>
        <source>充电至满时间:%1min
</source>
        <translation>充电至满时间：%1分钟
</translation>
    </message>
    <message>
        <source>放电至空时间:%1min
</source>
        <translation>放电至空时间：%1分钟
</translation>
    </message>
    <message>
        <source>Sub_ID:0x%1
</source>
        <translation>子ID：0x%1
</translation>
    </message>
    <message>
        <source>version Info:0x%1
</source>
        <translation>版本信息：0x%1
</translation>
    </message>
    <message>
        <source>software version:%1.%2.%3.%4
</source>
        <translation>软件版本：%1.%2.%3.%4
</translation>
    </message>
    <message>
        <source>hardware version:%1.%2.%3.%4
</source>
        <translation>硬件版本：%1.%2.%3.%4
</translation>
    </message>
    <message>
        <source>electric quantity :%1%
</source>
        <translation>电量：%1%
</translation>
    </message>
    <message>
        <source>至空时间:%1min
</source>
        <translation>至空时间：%1分钟
</translation>
    </message>
    <message>
        <source>至满时间:%1min
</source>
        <translation>至满时间：%1分钟
</translation>
    </message>
    <message>
        <source>设备类型:0x%1
</source>
        <translation>设备类型：0x%1
</translation>
    </message>
    <message>
        <source>电池固件信息:0x%1
</source>
        <translation>电池固件信息：0x%1
</translation>
    </message>
    <message>
        <source>电池硬件信息:0x%1
</source>
        <translation>电池硬件信息：0x%1
</translation>
    </message>
    <message>
        <source>循环次数:%1
</source>
        <translation>循环次数：%1
</translation>
    </message>
    <message>
        <source>满电容量:%1mAh
</source>
        <translation>满电容量：%1mAh
</translation>
    </message>
    <message>
        <source>制造商:0x%1
</source>
        <translation>制造商：0x%1
</translation>
    </message>
    <message>
        <source>电池警告:%1
</source>
        <translation>电池警告：%1
</translation>
    </message>
    <message>
        <source>充电器状态:%1
</source>
        <translation>充电器状态：%1
</translation>
    </message>
    <message>
        <source>充电器未插入</source>
        <translation>未插入</translation>
    </message>
    <message>
        <source>充电器插入</source>
        <translation>已插入</translation>
    </message>
    <message>
        <source>麦克风状态:%1
</source>
        <translation>麦克风状态：%1
</translation>
    </message>
    <message>
        <source>麦克风未插入</source>
        <translation>未插入</translation>
    </message>
    <message>
        <source>麦克风插入</source>
        <translation>已插入</translation>
    </message>
    <message>
        <source>POGO_PIN状态:%1
</source>
        <translation>POGO_PIN状态：%1
</translation>
    </message>
    <message>
        <source>未插入外设</source>
        <translation>未插入外设</translation>
    </message>
    <message>
        <source>已插入外设</source>
        <translation>已插入外设</translation>
    </message>
    <message>
        <source>获取电池信息失败
</source>
        <translation>获取电池信息失败
</translation>
    </message>
    <message>
        <source>获取电池信息成功
</source>
        <translation>获取电池信息成功
</translation>
    </message>
    <message>
        <source>Battery connection</source>
        <translation>电池连接</translation>
    </message>
    <message>
        <source>Battery status</source>
        <translation>电池状态</translation>
    </message>
    <message>
        <source>Battery Info</source>
        <translation>电池信息</translation>
    </message>
    <message>
        <source>Charge</source>
        <translation>充电</translation>
    </message>
    <message>
        <source>获取相机视频流状态失败
</source>
        <translation>获取相机视频流状态失败
</translation>
    </message>
    <message>
        <source>相机视频流NG
</source>
        <translation>相机视频流NG
</translation>
    </message>
    <message>
        <source>相机视频流OK
</source>
        <translation>相机视频流OK
</translation>
    </message>
    <message>
        <source>获取相机MTF检测签名失败
</source>
        <translation>获取相机MTF检测签名失败
</translation>
    </message>
    <message>
        <source>相机MTF检测未签名
</source>
        <translation>相机MTF检测未签名
</translation>
    </message>
    <message>
        <source>获取相机MTF检测数据失败
</source>
        <translation>获取相机MTF检测数据失败
</translation>
    </message>
    <message>
        <source>获取相机MTF检测Crc校验值失败
</source>
        <translation>获取相机MTF检测CRC校验值失败
</translation>
    </message>
    <message>
        <source>相机MTF测试Crc校验值有误
</source>
        <translation>相机MTF检测CRC校验值有误
</translation>
    </message>
    <message>
        <source>相机MTF测试成功
</source>
        <translation>相机MTF检测成功
</translation>
    </message>
    <message>
        <source>获取相机暗斑检测签名失败
</source>
        <translation>获取相机暗斑检测签名失败
</translation>
    </message>
    <message>
        <source>相机暗斑检测未签名
</source>
        <translation>相机暗斑检测未签名
</translation>
    </message>
    <message>
        <source>获取相机暗斑检测数据失败
</source>
        <translation>获取相机暗斑检测数据失败
</translation>
    </message>
    <message>
        <source>获取相机暗斑检测Crc校验值失败
</source>
        <translation>获取相机暗斑检测CRC校验值失败
</translation>
    </message>
    <message>
        <source>相机暗斑检测Crc校验值有误
</source>
        <translation>相机暗斑检测CRC校验值有误
</translation>
    </message>
    <message>
        <source>相机暗斑检测成功
</source>
        <translation>相机暗斑检测成功
</translation>
    </message>
    <message>
        <source>获取白平衡检测签名失败
</source>
        <translation>获取相机白平衡检测签名失败
</translation>
    </message>
    <message>
        <source>相机白平衡检测未签名
</source>
        <translation>相机白平衡检测未签名
</translation>
    </message>
    <message>
        <source>获取相机白平衡检测数据失败
</source>
        <translation>获取相机白平衡检测数据失败
</translation>
    </message>
    <message>
        <source>获取相机白平衡检测Crc校验值失败
</source>
        <translation>获取相机白平衡检测CRC校验值失败
</translation>
    </message>
    <message>
        <source>相机白平衡检测Crc校验值有误
</source>
        <translation>相机白平衡检测CRC校验值有误
</translation>
    </message>
    <message>
        <source>相机白平衡检测成功
</source>
        <translation>相机白平衡检测成功
</translation>
    </message>
    <message>
        <source>获取Focus检测签名失败
</source>
        <translation>获取相机对焦检测签名失败
</translation>
    </message>
    <message>
        <source>相机Focus检测未签名
</source>
        <translation>相机对焦检测未签名
</translation>
    </message>
    <message>
        <source>相机Focus检测成功
</source>
        <translation>相机对焦检测成功
</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>视频流</translation>
    </message>
    <message>
        <source>Factory Check</source>
        <translation>工厂检测</translation>
    </message>
    <message>
        <source>获取云台主控通信状态失败
</source>
        <translation>获取云台主控通信状态失败
</translation>
    </message>
    <message>
        <source>云台主控通信失败
</source>
        <translation>云台主控通信NG
</translation>
    </message>
    <message>
        <source>云台主控通信OK
</source>
        <translation>云台主控通信OK
</translation>
    </message>
    <message>
        <source>获取Roll轴通信状态失败
</source>
        <translation>获取横滚轴通信状态失败
</translation>
    </message>
    <message>
        <source>Roll轴通信异常
</source>
        <translation>横滚轴通信NG
</translation>
    </message>
    <message>
        <source>Roll轴通信OK
</source>
        <translation>横滚轴通信OK
</translation>
    </message>
    <message>
        <source>获取Pitch轴通信状态失败
</source>
        <translation>获取俯仰轴通信状态失败
</translation>
    </message>
    <message>
        <source>Pitch轴通信异常
</source>
        <translation>俯仰轴通信NG
</translation>
    </message>
    <message>
        <source>Pitch轴通信OK
</source>
        <translation>俯仰轴通信OK
</translation>
    </message>
    <message>
        <source>获取Yaw轴通信状态失败
</source>
        <translation>获取偏航轴通信状态失败
</translation>
    </message>
    <message>
        <source>Yaw轴通信异常
</source>
        <translation>偏航轴通信NG
</translation>
    </message>
    <message>
        <source>Yaw轴通信OK
</source>
        <translation>偏航轴通信OK
</translation>
    </message>
    <message>
        <source>Roll轴运动检测OK
</source>
        <translation>横滚轴运动检测OK
</translation>
    </message>
    <message>
        <source>Roll轴运动检测超时
</source>
        <translation>横滚轴运动检测超时
</translation>
    </message>
    <message>
        <source>Roll轴运动检测NG
</source>
        <translation>横滚轴运动检测NG
</translation>
    </message>
    <message>
        <source>Pitch轴运动检测OK
</source>
        <translation>俯仰轴运动检测OK
</translation>
    </message>
    <message>
        <source>Pitch轴运动检测超时
</source>
        <translation>俯仰轴运动检测超时
</translation>
    </message>
    <message>
        <source>Pitch轴运动检测NG
</source>
        <translation>俯仰轴运动检测NG
</translation>
    </message>
    <message>
        <source>Yaw轴运动检测OK
</source>
        <translation>偏航轴运动检测OK
</translation>
    </message>
    <message>
        <source>Yaw轴运动检测超时
</source>
        <translation>偏航轴运动检测超时
</translation>
    </message>
    <message>
        <source>Main connection</source>
        <translation>主控通信</translation>
    </message>
    <message>
        <source>ROLL connection</source>
        <translation>横滚轴通信</translation>
    </message>
    <message>
        <source>PITCH connection</source>
        <translation>俯仰轴通信</translation>
    </message>
    <message>
        <source>YAW connection</source>
        <translation>偏航轴通信</translation>
    </message>
    <message>
        <source>Cation test</source>
        <translation>运动检测</translation>
    </message>
    <message>
        <source>获取相机镜头状态失败
</source>
        <translation>获取相机镜头状态失败
</translation>
    </message>
    <message>
        <source>相机镜头连接失败
</source>
        <translation>相机镜头通信NG
</translation>
    </message>
    <message>
        <source>相机通信正常
</source>
        <translation>相机镜头通信OK
</translation>
    </message>
    <message>
        <source>Lens connection</source>
        <translation>镜头通信</translation>
    </message>
    <message>
        <source>Lens Status</source>
        <translation>镜头状态</translation>
    </message>
    <message>
        <source>it may come from another camera than that of the run</source>
        <translation>它可能来自本次检测以外的另一台相机</translation>
    </message>
    <message>
        <source>the camera&apos;s archive could not be fetched</source>
        <translation>无法从相机获取归档文件</translation>
    </message>
    <message>
        <source>the camera&apos;s shell did not answer</source>
        <translation>相机的命令行没有应答</translation>
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
        <translation>获取传感器工厂检测标志位失败
</translation>
    </message>
    <message>
        <source>工厂sensor未检测
</source>
        <translation>传感器未经工厂检测
</translation>
    </message>
    <message>
        <source>工厂sensor检测OK
</source>
        <translation>传感器工厂检测OK
</translation>
    </message>
    <message>
        <source>获取云台主控板工厂检测标志位失败
</source>
        <translation>获取云台主控板工厂检测标志位失败
</translation>
    </message>
    <message>
        <source>云台主控板工厂未检测
</source>
        <translation>云台主控板未经工厂检测
</translation>
    </message>
    <message>
        <source>云台主控板工厂检测OK
</source>
        <translation>云台主控板工厂检测OK
</translation>
    </message>
    <message>
        <source>获取Roll轴电调板工厂检测标志位失败
</source>
        <translation>获取横滚轴电调板工厂检测标志位失败
</translation>
    </message>
    <message>
        <source>Roll轴电调板工厂未检测
</source>
        <translation>横滚轴电调板未经工厂检测
</translation>
    </message>
    <message>
        <source>Roll轴电调板工厂检测OK
</source>
        <translation>横滚轴电调板工厂检测OK
</translation>
    </message>
    <message>
        <source>获取Pitch轴电调板工厂检测标志位失败
</source>
        <translation>获取俯仰轴电调板工厂检测标志位失败
</translation>
    </message>
    <message>
        <source>Pitch轴电调板工厂未检测
</source>
        <translation>俯仰轴电调板未经工厂检测
</translation>
    </message>
    <message>
        <source>Pitch轴电调板工厂检测OK
</source>
        <translation>俯仰轴电调板工厂检测OK
</translation>
    </message>
    <message>
        <source>获取Yaw轴电调板工厂检测标志位失败
</source>
        <translation>获取偏航轴电调板工厂检测标志位失败
</translation>
    </message>
    <message>
        <source>Yaw轴电调板工厂未检测
</source>
        <translation>偏航轴电调板未经工厂检测
</translation>
    </message>
    <message>
        <source>Yaw轴电调板工厂检测OK
</source>
        <translation>偏航轴电调板工厂检测OK
</translation>
    </message>
    <message>
        <source>获取电池工厂检测标志位失败
</source>
        <translation>获取电池板工厂检测标志位失败
</translation>
    </message>
    <message>
        <source>电池工厂未检测
</source>
        <translation>电池板未经工厂检测
</translation>
    </message>
    <message>
        <source>电池工厂检测OK
</source>
        <translation>电池板工厂检测OK
</translation>
    </message>
    <message>
        <source>Lens driver</source>
        <translation>镜头驱动</translation>
    </message>
    <message>
        <source>EEPROM</source>
        <translation>EEPROM</translation>
    </message>
    <message>
        <source>Gimbal Main</source>
        <translation>云台主控板</translation>
    </message>
    <message>
        <source>Gimbal ROLL</source>
        <translation>云台横滚轴电调板</translation>
    </message>
    <message>
        <source>Gimbal PITCH</source>
        <translation>云台俯仰轴电调板</translation>
    </message>
    <message>
        <source>Gimbal YAW</source>
        <translation>云台偏航轴电调板</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>电池</translation>
    </message>
    <message>
        <source>Fan</source>
        <translation>风扇</translation>
    </message>
    <message>
        <source>Button</source>
        <translation>按键</translation>
    </message>
    <message>
        <source>audio test
</source>
        <translation>音频检测
</translation>
    </message>
    <message>
        <source>SD卡被拔出</source>
        <translation>SD卡被拔出</translation>
    </message>
    <message>
        <source>SD卡初始化中</source>
        <translation>SD卡正在初始化</translation>
    </message>
    <message>
        <source>SD卡初始化完成</source>
        <translation>SD卡初始化完成</translation>
    </message>
    <message>
        <source>SD卡格式化中</source>
        <translation>SD卡正在格式化</translation>
    </message>
    <message>
        <source>SD卡修复中</source>
        <translation>SD卡正在修复</translation>
    </message>
    <message>
        <source>SD卡错误</source>
        <translation>SD卡错误</translation>
    </message>
    <message>
        <source>SD卡复用中</source>
        <translation>SD卡正被其他主机使用</translation>
    </message>
    <message>
        <source>SD卡写保护中</source>
        <translation>SD卡处于写保护状态</translation>
    </message>
    <message>
        <source>SD卡满</source>
        <translation>SD卡已满</translation>
    </message>
    <message>
        <source>,错误原因:SD卡碎片严重
</source>
        <translation>，错误原因：SD卡碎片严重
</translation>
    </message>
    <message>
        <source>,错误原因:SD卡簇错误
</source>
        <translation>，错误原因：SD卡簇错误
</translation>
    </message>
    <message>
        <source>,错误原因:SD卡文件系统错误
</source>
        <translation>，错误原因：SD卡文件系统错误
</translation>
    </message>
    <message>
        <source>,错误原因:SD卡低速卡
</source>
        <translation>，错误原因：SD卡为低速卡
</translation>
    </message>
    <message>
        <source>,错误原因:SD卡挂载失败
</source>
        <translation>，错误原因：SD卡挂载失败
</translation>
    </message>
    <message>
        <source>,错误原因:SD卡存储系统错误
</source>
        <translation>，错误原因：SD卡存储系统错误
</translation>
    </message>
    <message>
        <source>,错误原因:SD卡文件系统不支持
</source>
        <translation>，错误原因：不支持SD卡的文件系统
</translation>
    </message>
    <message>
        <source>,错误原因:SD卡修复文件失败
</source>
        <translation>，错误原因：SD卡修复文件失败
</translation>
    </message>
    <message>
        <source>获取TF卡状态失败
</source>
        <translation>获取TF卡状态失败
</translation>
    </message>
    <message>
        <source>获取TF卡使用状态失败
</source>
        <translation>获取TF卡使用情况失败
</translation>
    </message>
    <message>
        <source>扇区大小:%1K
</source>
        <translation>扇区大小：%1K
</translation>
    </message>
    <message>
        <source>总内存:%1MB
</source>
        <translation>总容量：%1MB
</translation>
    </message>
    <message>
        <source>可用内存:%1MB
</source>
        <translation>可用容量：%1MB
</translation>
    </message>
    <message>
        <source>已用内存:%1MB
</source>
        <translation>已用容量：%1MB
</translation>
    </message>
    <message>
        <source>mount SD Card faild
</source>
        <translation>获取SD卡挂载状态失败
</translation>
    </message>
    <message>
        <source>SD卡未挂载
</source>
        <translation>SD卡未挂载
</translation>
    </message>
    <message>
        <source>获取SD卡信息失败
</source>
        <translation>获取SD卡信息失败
</translation>
    </message>
    <message>
        <source>SD Card OK
</source>
        <translation>SD卡OK
</translation>
    </message>
    <message>
        <source>警告:非高SD速卡
</source>
        <translation>警告：非高速SD卡
</translation>
    </message>
    <message>
        <source>Use condition</source>
        <translation>使用情况</translation>
    </message>
    <message>
        <source>Literacy rate</source>
        <translation>读写速率</translation>
    </message>
    <message>
        <source>获取Wifi信息失败.</source>
        <translation>获取WiFi信息失败。</translation>
    </message>
    <message>
        <source>获取Mac地址失败.</source>
        <translation>获取MAC地址失败。</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>相机</translation>
    </message>
    <message>
        <source>Gimbal</source>
        <translation>云台</translation>
    </message>
    <message>
        <source>Lens</source>
        <translation>镜头</translation>
    </message>
    <message>
        <source>TF Card</source>
        <translation>TF卡</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>音频</translation>
    </message>
    <message>
        <source>PCBA</source>
        <translation>PCBA</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>日志</translation>
    </message>
    <message>
        <source>电池组电压过低</source>
        <translation>；电池组电压过低</translation>
    </message>
    <message>
        <source>电池组电压过高</source>
        <translation>；电池组电压过高</translation>
    </message>
    <message>
        <source>充电过程中电流超过阈值 1</source>
        <translation>；充电过程中电流超过阈值1</translation>
    </message>
    <message>
        <source>充电过程中电流超过阈值 2</source>
        <translation>；充电过程中电流超过阈值2</translation>
    </message>
    <message>
        <source>放电过程中电流超过阈值 1</source>
        <translation>；放电过程中电流超过阈值1</translation>
    </message>
    <message>
        <source>放电过程中电流超过阈值 2</source>
        <translation>；放电过程中电流超过阈值2</translation>
    </message>
    <message>
        <source>放电过载</source>
        <translation>；放电过载</translation>
    </message>
    <message>
        <source>充电过程中出现短路现象</source>
        <translation>；充电过程中出现短路现象</translation>
    </message>
    <message>
        <source>放电过程中出现短路现象</source>
        <translation>；放电过程中出现短路现象</translation>
    </message>
    <message>
        <source>充电过程中温度过高</source>
        <translation>；充电过程中温度过高</translation>
    </message>
    <message>
        <source>放电过程中温度过高</source>
        <translation>；放电过程中温度过高</translation>
    </message>
    <message>
        <source>电池出现补偿型电压过低现象</source>
        <translation>；电池出现补偿型电压过低现象</translation>
    </message>
    <message>
        <source>FET 温度过高</source>
        <translation>；FET温度过高</translation>
    </message>
    <message>
        <source>预充电过程超时</source>
        <translation>；预充电过程超时</translation>
    </message>
    <message>
        <source>延时预充电超时</source>
        <translation>；延时预充电超时</translation>
    </message>
    <message>
        <source>充电过程超时</source>
        <translation>；充电过程超时</translation>
    </message>
    <message>
        <source>延时充电超时</source>
        <translation>；延时充电超时</translation>
    </message>
    <message>
        <source>电池过充</source>
        <translation>；电池过充</translation>
    </message>
    <message>
        <source>电池过充电流型警告</source>
        <translation>；电池过充电流型警告</translation>
    </message>
    <message>
        <source>电池过充电压型警告</source>
        <translation>；电池过充电压型警告</translation>
    </message>
    <message>
        <source>电池过预充电电流型警告</source>
        <translation>；电池过预充电电流型警告</translation>
    </message>
    <message>
        <source>充电过程中温度过低</source>
        <translation>；充电过程中温度过低</translation>
    </message>
    <message>
        <source>放电过程中温度过低</source>
        <translation>；放电过程中温度过低</translation>
    </message>
    <message>
        <source>%1: not read (%2)</source>
        <translation>%1：未读取 (%2)</translation>
    </message>
    <message>
        <source>状态良好</source>
        <translation>状态良好</translation>
    </message>
    <message>
        <source>Pitch轴运动检测NG
</source>
        <comment>of the yaw axis</comment>
        <translation>偏航轴运动检测NG
</translation>
    </message>
</context>
<context>
    <name>Questions</name>
    <message>
        <source>&quot;%1&quot; cannot be asked for; known are %2</source>
        <translation>不能询问“%1”；可用的为%2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; stands there twice</source>
        <translation>“%1”重复</translation>
    </message>
</context>
<context>
    <name>Record</name>
    <message>
        <source>longer than %1 MiB</source>
        <translation>超过%1 MiB</translation>
    </message>
    <message>
        <source>%1 is missing</source>
        <translation>缺少%1</translation>
    </message>
    <message>
        <source>%1 cannot be read</source>
        <translation>无法读取%1</translation>
    </message>
    <message>
        <source>not JSON: %1 at byte %2</source>
        <translation>不是JSON：%1，位于第%2字节</translation>
    </message>
    <message>
        <source>not a JSON object</source>
        <translation>不是JSON对象</translation>
    </message>
    <message>
        <source>schema %1 is not known</source>
        <translation>未知的格式版本%1</translation>
    </message>
    <message>
        <source>passed</source>
        <translation>通过</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>未通过</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>notTested</source>
        <translation>未检测</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>已停止</translation>
    </message>
    <message>
        <source>error</source>
        <translation>出错</translation>
    </message>
    <message>
        <source>answered</source>
        <translation>已应答</translation>
    </message>
    <message>
        <source>noReply</source>
        <translation>无应答</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>被拒绝</translation>
    </message>
    <message>
        <source>wrongSize</source>
        <translation>应答长度有误</translation>
    </message>
</context>
<context>
    <name>RecordOutput</name>
    <message>
        <source>standard output</source>
        <translation>标准输出</translation>
    </message>
</context>
<context>
    <name>ReportTexts</name>
    <message>
        <source>en</source>
        <comment>the language of the page, as HTML names it</comment>
        <translation>zh-CN</translation>
    </message>
    <message>
        <source>No data</source>
        <translation>无数据</translation>
    </message>
    <message>
        <source>(none)</source>
        <translation>（无）</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1至%2</translation>
    </message>
    <message>
        <source>No runs</source>
        <translation>没有检测</translation>
    </message>
    <message>
        <source>%1, station %2</source>
        <translation>%1，工作站%2</translation>
    </message>
    <message>
        <source>%1, batch %2</source>
        <translation>%1，批次%2</translation>
    </message>
    <message>
        <source>%1, firmware %2</source>
        <translation>%1，固件%2</translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation>相机数</translation>
    </message>
    <message>
        <source>First-pass yield</source>
        <translation>一次通过率</translation>
    </message>
    <message>
        <source>Final yield</source>
        <translation>最终良率</translation>
    </message>
    <message>
        <source>Mean duration</source>
        <translation>平均用时</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>检测次数</translation>
    </message>
    <message>
        <source>passed</source>
        <translation>通过</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>未通过</translation>
    </message>
    <message>
        <source>stopped or no answer</source>
        <translation>已停止或无应答</translation>
    </message>
    <message>
        <source>Passed</source>
        <translation>通过</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>未通过</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>其他</translation>
    </message>
    <message>
        <source>First-pass</source>
        <translation>一次通过率</translation>
    </message>
    <message>
        <source>Final</source>
        <translation>最终良率</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>项目</translation>
    </message>
    <message>
        <source>Tested</source>
        <translation>已测</translation>
    </message>
    <message>
        <source>Warned</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Failed of tested</source>
        <translation>不良率</translation>
    </message>
    <message>
        <source>n = %1, mean %2, standard deviation %3, from %4 to %5, limit %6..%7, Cpk %8, %9 outside their limit</source>
        <translation>n = %1，均值%2，标准差%3，范围%4至%5，限值%6..%7，Cpk %8，超限%9个</translation>
    </message>
    <message>
        <source>%1; %2 far off to the left and %3 to the right are not drawn</source>
        <translation>%1；左侧远处的%2个值和右侧远处的%3个值未绘出</translation>
    </message>
    <message>
        <source>%1 (warning)</source>
        <translation>%1（警告）</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>相机</translation>
    </message>
    <message>
        <source>Serial</source>
        <translation>序列号</translation>
    </message>
    <message>
        <source>Last run</source>
        <translation>最后检测</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>工作站</translation>
    </message>
    <message>
        <source>Batch</source>
        <translation>批次</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>固件</translation>
    </message>
    <message>
        <source>Failure: value (limit)</source>
        <translation>未通过项目：值（限值）</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1秒</translation>
    </message>
    <message>
        <source>%1 min %2 s</source>
        <translation>%1分%2秒</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1小时%2分</translation>
    </message>
    <message>
        <source>Test report, %1</source>
        <translation>检测报告，%1</translation>
    </message>
    <message>
        <source>Test report</source>
        <translation>检测报告</translation>
    </message>
    <message>
        <source>From %1, made %2 by %3</source>
        <translation>数据来自%1，由%3于%2生成</translation>
    </message>
    <message>
        <source>There are no runs in this period.</source>
        <translation>该时段内没有检测。</translation>
    </message>
    <message>
        <source>Yields count cameras, each on the day and at the station of its first judged run: by how that run ended (first-pass), and by how its last one ended (final).</source>
        <translation>良率按相机统计，每台相机计入其首次得出结论的检测所在的日期和工作站：按该次检测的结果计算一次通过率，按最后一次检测的结果计算最终良率。</translation>
    </message>
    <message>
        <source>Yield over time</source>
        <translation>良率趋势</translation>
    </message>
    <message>
        <source>What fails</source>
        <translation>未通过项目</translation>
    </message>
    <message>
        <source>Measurements with limits</source>
        <translation>有限值的测量</translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>%1 in %2, in %3</source>
        <translation>%1（%2），单位%3</translation>
    </message>
    <message>
        <source>Stations</source>
        <translation>工作站</translation>
    </message>
    <message>
        <source>Batches</source>
        <translation>批次</translation>
    </message>
    <message>
        <source>Failed cameras (%1)</source>
        <translation>未通过的相机（%1台）</translation>
    </message>
    <message>
        <source>Every camera passed in its last judged run.</source>
        <translation>每台相机在最后一次得出结论的检测中均通过。</translation>
    </message>
</context>
<context>
    <name>RunComparison</name>
    <message>
        <source>station</source>
        <translation>工作站</translation>
    </message>
    <message>
        <source>location</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>operator</source>
        <translation>操作员</translation>
    </message>
    <message>
        <source>batch</source>
        <translation>批次</translation>
    </message>
    <message>
        <source>serial</source>
        <translation>序列号</translation>
    </message>
    <message>
        <source>program version</source>
        <translation>程序版本</translation>
    </message>
    <message>
        <source>firmware</source>
        <translation>固件</translation>
    </message>
    <message>
        <source>wifi name</source>
        <translation>WiFi名称</translation>
    </message>
    <message>
        <source>link</source>
        <translation>连接方式</translation>
    </message>
    <message>
        <source>plan</source>
        <translation>检测计划</translation>
    </message>
    <message>
        <source>not run</source>
        <translation>未执行</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>not measured</source>
        <translation>未测量</translation>
    </message>
</context>
<context>
    <name>RunPlan</name>
    <message>
        <source>&quot;%1&quot; is not an item&apos;s number</source>
        <translation>“%1”不是项目编号</translation>
    </message>
    <message>
        <source>the range &quot;%1&quot; runs backwards</source>
        <translation>范围“%1”的顺序颠倒</translation>
    </message>
    <message>
        <source>there is no item %1; the items are %2</source>
        <translation>没有项目%1；可用的项目为%2</translation>
    </message>
    <message>
        <source>item %1 stands there twice</source>
        <translation>项目%1重复</translation>
    </message>
    <message>
        <source>no item is named</source>
        <translation>没有指定项目</translation>
    </message>
    <message>
        <source>unknown component &quot;%1&quot;; known are all, or any of: %2</source>
        <translation>未知部件“%1”；可用all或以下任意部件：%2</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: the component&apos;s items are named twice</source>
        <translation>“%1”：该部件的项目重复指定</translation>
    </message>
    <message>
        <source>there is no such component; known are %1</source>
        <translation>没有此部件；可用的部件为%1</translation>
    </message>
</context>
<context>
    <name>RunRecorder</name>
    <message>
        <source>the program was closed</source>
        <translation>程序被关闭</translation>
    </message>
    <message>
        <source>something else than a known item failed</source>
        <translation>已知项目以外的内容失败</translation>
    </message>
</context>
<context>
    <name>RunTableModel</name>
    <message>
        <source>Begin</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>结果</translation>
    </message>
    <message>
        <source>MAC</source>
        <translation>MAC</translation>
    </message>
    <message>
        <source>Serial</source>
        <translation>序列号</translation>
    </message>
    <message>
        <source>Finding</source>
        <translation>问题项</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>工作站</translation>
    </message>
    <message>
        <source>Batch</source>
        <translation>批次</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>固件</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>用时</translation>
    </message>
    <message>
        <source>Operator</source>
        <translation>操作员</translation>
    </message>
</context>
<context>
    <name>RunView</name>
    <message>
        <source>Outside</source>
        <translation>超出限值</translation>
    </message>
    <message>
        <source>%1, %2 bytes, SHA-256 %3</source>
        <translation>%1，%2字节，SHA-256 %3</translation>
    </message>
    <message>
        <source>Open &amp;Folder</source>
        <translation>打开文件夹(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Copy Run</source>
        <translation>复制检测记录(&amp;C)</translation>
    </message>
    <message>
        <source>The run</source>
        <translation>这次检测</translation>
    </message>
    <message>
        <source>Components, items and measurements of the run</source>
        <translation>这次检测的部件、项目和测量值</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>项目</translation>
    </message>
    <message>
        <source>Verdict</source>
        <translation>判定</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>值</translation>
    </message>
    <message>
        <source>Limits</source>
        <translation>限值</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>用时</translation>
    </message>
    <message>
        <source>What the item reported</source>
        <translation>项目的报告</translation>
    </message>
    <message>
        <source>This run is not in the store any more.</source>
        <translation>这次检测已不在历史库中。</translation>
    </message>
    <message>
        <source>No run is chosen.</source>
        <translation>没有选中检测记录。</translation>
    </message>
    <message>
        <source>Outcome: %1</source>
        <translation>结果：%1</translation>
    </message>
    <message>
        <source>MAC</source>
        <translation>MAC</translation>
    </message>
    <message>
        <source>Serial</source>
        <translation>序列号</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>工作站</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Operator</source>
        <translation>操作员</translation>
    </message>
    <message>
        <source>Batch</source>
        <translation>批次</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>固件</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>原因</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1，%2</translation>
    </message>
    <message>
        <source>This run has no folder below %1: which folder was chosen for results at its station?</source>
        <translation>%1下没有这次检测的文件夹：该工作站选择了哪个结果文件夹？</translation>
    </message>
    <message>
        <source>There is no program to show %1</source>
        <translation>没有可以显示%1的程序</translation>
    </message>
    <message>
        <source>This run has no folder below %1</source>
        <translation>%1下没有这次检测的文件夹</translation>
    </message>
    <message>
        <source>The run is in the clipboard</source>
        <translation>检测记录已复制到剪贴板</translation>
    </message>
</context>
<context>
    <name>Safeguards</name>
    <message>
        <source>no component is ticked</source>
        <translation>没有勾选任何部件</translation>
    </message>
    <message>
        <source>no camera is connected</source>
        <translation>没有连接相机</translation>
    </message>
    <message>
        <source>the camera&apos;s MAC address is unknown</source>
        <translation>相机的MAC地址未知</translation>
    </message>
</context>
<context>
    <name>Settings</name>
    <message>
        <source>no IPv4 address</source>
        <translation>不是IPv4地址</translation>
    </message>
    <message>
        <source>not a hexadecimal number of at most 64 bits</source>
        <translation>不是64位以内的十六进制数</translation>
    </message>
    <message>
        <source>neither true nor false</source>
        <translation>既不是true也不是false</translation>
    </message>
    <message>
        <source>this link is not used</source>
        <translation>不使用此连接</translation>
    </message>
    <message>
        <source>no camera can be found</source>
        <translation>无法找到相机</translation>
    </message>
    <message>
        <source>the station cannot log in to the camera&apos;s shell</source>
        <translation>工作站无法登录相机的命令行</translation>
    </message>
    <message>
        <source>the camera&apos;s archives cannot be fetched</source>
        <translation>无法获取相机的归档文件</translation>
    </message>
    <message>
        <source>the records do not tell it</source>
        <translation>记录中没有此内容</translation>
    </message>
    <message>
        <source>this log of the camera cannot be fetched</source>
        <translation>无法获取相机的此项日志</translation>
    </message>
    <message>
        <source>no TCP port</source>
        <translation>不是TCP端口</translation>
    </message>
    <message>
        <source>the camera&apos;s WiFi name and passphrase stay unknown</source>
        <translation>无法得知相机的WiFi名称和密码</translation>
    </message>
    <message>
        <source>the camera&apos;s MAC address stays unknown</source>
        <translation>无法得知相机的MAC地址</translation>
    </message>
    <message>
        <source>a healthy camera is expected to report 0 in every status bit</source>
        <translation>正常相机的每个状态位都应为0</translation>
    </message>
    <message>
        <source>no status bit is examined, and every camera passes</source>
        <translation>不检查任何状态位，所有相机都会通过</translation>
    </message>
    <message>
        <source>the safeguards are off</source>
        <translation>防误判保护已关闭</translation>
    </message>
    <message>
        <source>no run begins by itself</source>
        <translation>不会自动开始检测</translation>
    </message>
    <message>
        <source>there are no sounds</source>
        <translation>没有提示音</translation>
    </message>
    <message>
        <source>the records tell the host&apos;s name</source>
        <translation>记录中使用主机名</translation>
    </message>
    <message>
        <source>no run is kept in a history</source>
        <translation>检测不会保存到历史记录</translation>
    </message>
    <message>
        <source>not of the form postgresql://user@host/database, or with a password, which belongs into .pgpass</source>
        <translation>不是postgresql://user@host/database的形式，或者含有密码（密码应放在.pgpass中）</translation>
    </message>
    <message>
        <source>the runs stay at this station</source>
        <translation>检测记录只保留在本工作站</translation>
    </message>
    <message>
        <source>cannot be read</source>
        <translation>无法读取</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>缺失</translation>
    </message>
    <message>
        <source>neither en nor zh_CN</source>
        <translation>既不是en也不是zh_CN</translation>
    </message>
    <message>
        <source>the texts are partly English, partly Chinese</source>
        <translation>文字部分为英文、部分为中文</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>为空</translation>
    </message>
    <message>
        <source>a comma stands outside of double quotes</source>
        <translation>双引号外有逗号</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is %2</source>
        <translation>“%1”%2</translation>
    </message>
    <message>
        <source>some lines are no settings</source>
        <translation>有些行不是设置</translation>
    </message>
    <message>
        <source>these lines are ignored</source>
        <translation>这些行被忽略</translation>
    </message>
</context>
<context>
    <name>StationHistory</name>
    <message>
        <source>passed</source>
        <translation>通过</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>未通过</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>已停止</translation>
    </message>
    <message>
        <source>without a verdict</source>
        <translation>没有结论</translation>
    </message>
    <message>
        <source>Not tested before</source>
        <translation>以前未检测过</translation>
    </message>
    <message>
        <source>Runs so far: %1
The last one: %2, %3</source>
        <translation>已检测次数：%1
最近一次：%2，%3</translation>
    </message>
    <message>
        <source>History of this camera</source>
        <translation>此相机的检测历史</translation>
    </message>
    <message>
        <source>%1 cannot be started</source>
        <translation>无法启动%1</translation>
    </message>
</context>
<context>
    <name>StatisticsView</name>
    <message>
        <source>Yield by day</source>
        <translation>每日良率</translation>
    </message>
    <message>
        <source>Failures by item</source>
        <translation>各项目未通过次数</translation>
    </message>
    <message>
        <source>Measurement</source>
        <translation>测量值</translation>
    </message>
    <message>
        <source>Duration of runs</source>
        <translation>检测用时</translation>
    </message>
    <message>
        <source>All together</source>
        <translation>全部合计</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>工作站</translation>
    </message>
    <message>
        <source>Batch</source>
        <translation>批次</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>固件</translation>
    </message>
    <message>
        <source>What the plot shows</source>
        <translation>图表的内容</translation>
    </message>
    <message>
        <source>Copy Pict&amp;ure</source>
        <translation>复制图片(&amp;U)</translation>
    </message>
    <message>
        <source>Save Picture &amp;As…</source>
        <translation>图片另存为(&amp;A)…</translation>
    </message>
    <message>
        <source>&amp;Diagram</source>
        <translation>图表(&amp;D)</translation>
    </message>
    <message>
        <source>B&amp;y</source>
        <translation>分组(&amp;Y)</translation>
    </message>
    <message>
        <source>Of the latest %1 values.</source>
        <translation>最近的%1个值。</translation>
    </message>
    <message>
        <source>MAC, serial, outcome and finding do not count here.</source>
        <translation>MAC、序列号、结果和问题项在此不起作用。</translation>
    </message>
    <message>
        <source>The picture is in the clipboard</source>
        <translation>图片已复制到剪贴板</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>保存图片</translation>
    </message>
    <message>
        <source>Pictures (*.png)</source>
        <translation>图片(*.png)</translation>
    </message>
    <message>
        <source>Saved: %1</source>
        <translation>已保存：%1</translation>
    </message>
    <message>
        <source>%1 was not saved: %2</source>
        <translation>%1未保存：%2</translation>
    </message>
    <message numerus="yes">
        <source>Left out: %n groups with fewer runs or without a name.</source>
        <translation>
            <numerusform>未显示：%n个检测较少或没有名称的组。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StoreAddress</name>
    <message>
        <source>not of the form postgresql://user@host/database</source>
        <translation>不是postgresql://user@host/database的形式</translation>
    </message>
    <message>
        <source>a password does not belong here: put it into .pgpass</source>
        <translation>密码不应写在这里：请放入.pgpass</translation>
    </message>
    <message>
        <source>holds an option that cannot be passed on</source>
        <translation>含有无法传递的选项</translation>
    </message>
</context>
<context>
    <name>StoreError</name>
    <message>
        <source>another program is writing to it</source>
        <translation>另一个程序正在写入</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>磁盘已满</translation>
    </message>
    <message>
        <source>the file is damaged</source>
        <translation>文件已损坏</translation>
    </message>
    <message>
        <source>it was made by a newer version of this program</source>
        <translation>它由本程序的更新版本创建</translation>
    </message>
    <message>
        <source>the file is a database of another program</source>
        <translation>该文件是其他程序的数据库</translation>
    </message>
    <message>
        <source>it cannot be opened or written to</source>
        <translation>无法打开或写入</translation>
    </message>
    <message>
        <source>not there</source>
        <translation>不存在</translation>
    </message>
    <message>
        <source>the server cannot be reached</source>
        <translation>无法连接服务器</translation>
    </message>
    <message>
        <source>the record cannot be kept</source>
        <translation>无法保存此记录</translation>
    </message>
    <message>
        <source>it does not work</source>
        <translation>无法使用</translation>
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
        <translation>警告</translation>
    </message>
    <message>
        <source>not tested</source>
        <translation>未检测</translation>
    </message>
    <message>
        <source>The camera is connected, but its MAC address is unknown</source>
        <translation>相机已连接，但其MAC地址未知</translation>
    </message>
    <message>
        <source>No camera found</source>
        <translation>没有找到相机</translation>
    </message>
    <message>
        <source>%1 after %2 s
</source>
        <translation>%1（已等待%2秒）
</translation>
    </message>
    <message>
        <source>%1%2Result: %3

%4</source>
        <translation>%1%2结果：%3

%4</translation>
    </message>
    <message>
        <source>Mac: %1
</source>
        <translation>MAC：%1
</translation>
    </message>
    <message>
        <source>The screenshot could not be saved: %1: %2
</source>
        <translation>无法保存截图：%1：%2
</translation>
    </message>
</context>
<context>
    <name>UnitView</name>
    <message>
        <source>Runs of the camera, the latest one first</source>
        <translation>此相机的检测记录，最新的在最前</translation>
    </message>
    <message>
        <source>What changed</source>
        <translation>变化</translation>
    </message>
    <message>
        <source>Runs of the camera along time</source>
        <translation>此相机各次检测的时间分布</translation>
    </message>
    <message>
        <source>The chosen run names no camera.</source>
        <translation>选中的检测记录没有相机的MAC地址。</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>结果</translation>
    </message>
    <message>
        <source>Finding</source>
        <translation>问题项</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>原因</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>工作站</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>固件</translation>
    </message>
    <message>
        <source>Operator</source>
        <translation>操作员</translation>
    </message>
    <message>
        <source>What</source>
        <translation>项目</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>之前</translation>
    </message>
    <message>
        <source>After</source>
        <translation>之后</translation>
    </message>
    <message>
        <source>What changed from its last pass (%1) to its first failure after it (%2):</source>
        <translation>从最后一次通过（%1）到其后首次未通过（%2）的变化：</translation>
    </message>
    <message numerus="yes">
        <source>%1: %n runs</source>
        <translation>
            <numerusform>%1：%n次检测</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>languageOption</name>
    <message>
        <source>Speak this language: en or zh_CN (default: by option.ini).</source>
        <translation>使用的语言：en或zh_CN（默认：按option.ini）。</translation>
    </message>
    <message>
        <source>language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>--language: &quot;%1&quot; is neither en nor zh_CN</source>
        <translation>--language：“%1”既不是en也不是zh_CN</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Another KestDetector is running on this PC. Two of them would take each other&apos;s replies from the camera.</source>
        <translation>本机上已有一个KestDetector在运行。两个程序会互相抢走相机的应答。</translation>
    </message>
    <message>
        <source>Try --help.</source>
        <translation>请用 --help 查看用法。</translation>
    </message>
</context>
<context>
    <name>wholeFile</name>
    <message>
        <source>Not a regular file</source>
        <translation>不是普通文件</translation>
    </message>
</context>
</TS>
