#pragma once

/// What a healthy camera leaves in the detection log, block by block, and the log's lines that several tests expect.
namespace expectedLogs {
inline constexpr char camera[] = "[Camera]:\n"
                                 "相机视频流OK\n"
                                 "\n";
inline constexpr char gimbal[] = "[Gimbal]:\n"
                                 "云台主控通信OK\n"
                                 "Roll轴通信OK\n"
                                 "Pitch轴通信OK\n"
                                 "Yaw轴通信OK\n"
                                 "\n";
inline constexpr char batteryLink[] = "[Battery]:\n"
                                      "相机电池通信OK\n";
inline constexpr char batteryInfo[] = "获取电池信息成功\n"
                                      "++++++++++\n"
                                      "Sub_ID:0x4\n"
                                      "version Info:0x10\n"
                                      "software version:1.2.3.4\n"
                                      "hardware version:1.0.0.2\n"
                                      "electric quantity :87%\n"
                                      "voltage:3.85V\n"
                                      "electricity:-250mA\n"
                                      "temperature:25.34℃\n"
                                      "至空时间:95min\n"
                                      "至满时间:0min\n"
                                      "设备类型:0x101\n"
                                      "电池固件信息:0x210\n"
                                      "电池硬件信息:0x103\n"
                                      "循环次数:12\n"
                                      "满电容量:875mAh\n"
                                      "制造商:0x4b53\n"
                                      "电池警告:状态良好\n"
                                      "充电器状态:充电器未插入\n"
                                      "麦克风状态:麦克风未插入\n"
                                      "POGO_PIN状态:未插入外设\n"
                                      "----------\n"
                                      "\n";
inline constexpr char batteryStatus[] = "获取电池状态成功\n"
                                        "++++++++++\n"
                                        "electric quantity:87%\n"
                                        "voltage:3.85V\n"
                                        "electricity:-250mA\n"
                                        "temperature:25.34℃\n"
                                        "充电至满时间:0min\n"
                                        "放电至空时间:95min\n"
                                        "----------\n"
                                        "\n"
                                        "\n";
inline constexpr char cardUse[] = "[TF Card]:\n"
                                  "扇区大小:32K\n"
                                  "总内存:30436.5MB\n"
                                  "可用内存:24576MB\n"
                                  "已用内存:5860.5MB\n";
inline constexpr char cardSpeed[] = "SD Card OK\n"
                                    "\n";
inline constexpr char lens[] = "[Lens]:\n"
                               "相机通信正常\n"
                               "\n";
inline constexpr char pcba[] = "[PCBA]:\n"
                               "工厂sensor检测OK\n"
                               "云台主控板工厂检测OK\n"
                               "Roll轴电调板工厂检测OK\n"
                               "Pitch轴电调板工厂检测OK\n"
                               "Yaw轴电调板工厂检测OK\n"
                               "电池工厂检测OK\n"
                               "\n";
} // namespace expectedLogs
