# The programs' sources, relative to src/, in one place: the main build and the fuzz build
# (fuzz/CMakeLists.txt) both take their lists from here.

# The logic: plain C++ on wxBase and the three ports.
set(TGX_CORE_SOURCES
  commands/conflict_check.cpp
  base/device_type_table.cpp
  base/installation_environment.cpp
  commands/small_commands.cpp
  commands/startup.cpp
  deploy/config_generator.cpp
  deploy/project_save.cpp
  deploy/configure_device.cpp
  deploy/device_tools.cpp
  deploy/firmware_update.cpp
  deploy/maintenance_commands.cpp
  base/tool_command.cpp
  deploy/installation_turn.cpp
  platform/wx_tool_runner.cpp
  platform/captured_output.cpp
  platform/com_port_scan.cpp
  base/process_locks.cpp
  platform/posix_platform.cpp
  platform/windows_platform.cpp
  project/project.cpp
  project/device_list.cpp
  project/command_list.cpp
  project/panel_view.cpp
  base/number_text.cpp
  project/project_file.cpp
  commands/project_commands.cpp
  commands/device_editing.cpp
  commands/command_editing.cpp
  deploy/load_from_device.cpp
  deploy/private_folder.cpp
  deploy/automatic_map.cpp
  modbus/map_export.cpp
  deploy/map_chain.cpp
  modbus/map_editing.cpp
  modbus/map_export_command.cpp
  modbus/map_import.cpp
  modbus/map_modes.cpp
  project/project_check.cpp
  project/project_diff.cpp
  base/text_file.cpp
  base/text_lines.cpp
  base/unicode_text.cpp
  remote/options_editing.cpp
  remote/remote_com_port.cpp
  mux/mux_scan.cpp
  mux/mux_rebuild.cpp
)

# The desktop program's windows: humble views over the logic.
set(TGX_DESKTOP_SOURCES
  desktop/main_frame_base.cpp
  desktop/main_frame.cpp
  desktop/desktop_tool_runner.cpp
  desktop/wx_user_interface.cpp
  desktop/about_box.cpp
  desktop/device_dialog.cpp
  desktop/cmd_dialog.cpp
  desktop/dialog_layout.cpp
  desktop/options_dialog.cpp
  desktop/remote_dialog.cpp
  desktop/scan_dialog.cpp
  desktop/mux_scan_frame.cpp
  desktop/mux_rebuild_dialog.cpp
)

# tgxcfg: the tool without its window.
set(TGX_CLI_SOURCES
  cli/tgxcfg_main.cpp
  cli/command_line.cpp
  cli/console_user_interface.cpp
  cli/cli_commands.cpp
  cli/mux_cli_commands.cpp
  cli/cli_json.cpp
)
