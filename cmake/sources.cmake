# The programs' sources, relative to src/, in one place: the main build and the fuzz build
# (fuzz/CMakeLists.txt) both take their lists from here.

# The ground floor and the project: what reads, writes, checks and compares projects.
set(TGX_PROJECT_SOURCES
  base/device_type_table.cpp
  base/installation_environment.cpp
  base/number_text.cpp
  base/process_locks.cpp
  base/text_file.cpp
  base/text_lines.cpp
  base/tool_command.cpp
  base/unicode_text.cpp
  project/command_list.cpp
  project/device_list.cpp
  project/panel_view.cpp
  project/project.cpp
  project/project_check.cpp
  project/project_diff.cpp
  project/project_file.cpp
)

# The logic above them: the platforms, the workflows and the commands, on wxBase and the three ports.
set(TGX_CORE_SOURCES
  platform/captured_output.cpp
  platform/com_port_scan.cpp
  platform/posix_platform.cpp
  platform/windows_platform.cpp
  platform/wx_tool_runner.cpp
  deploy/automatic_map.cpp
  deploy/config_generator.cpp
  deploy/configure_device.cpp
  deploy/device_tools.cpp
  deploy/firmware_update.cpp
  deploy/installation_turn.cpp
  deploy/load_from_device.cpp
  deploy/maintenance_commands.cpp
  deploy/map_chain.cpp
  deploy/private_folder.cpp
  deploy/project_save.cpp
  modbus/map_editing.cpp
  modbus/map_export.cpp
  modbus/map_export_command.cpp
  modbus/map_import.cpp
  modbus/map_modes.cpp
  remote/options_editing.cpp
  remote/remote_com_port.cpp
  mux/mux_rebuild.cpp
  mux/mux_scan.cpp
  commands/command_editing.cpp
  commands/conflict_check.cpp
  commands/device_editing.cpp
  commands/project_commands.cpp
  commands/small_commands.cpp
  commands/startup.cpp
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
