#!/usr/bin/env python3
"""Writes the expected ct.ini and dbsave.txt of the "fifty commands" case from the file rules.

The project (set up the same way in config_generator_test.cpp, FiftyCommands):
  default project, tag name "Line_4", mode "BRIDGE CLIENT", remote IP "192.168.7.20",
  float swap bytes 1 (words 1 and longs 0 by default), polling deferral "OFF" (not a known
  mode), NaN control 1; one device type row "Generic gen_dev.ini gen_mb1.ini gen_mb2.ini
  gen_mb3.ini gen_dmb.ini"; device 0 "Generic" at poll address 3, enabled, no commands;
  device 1 "Generic" at poll address 9, enabled, 50 commands where slot k (0..49) holds
  command 128 + k, arguments k*8 + 0 .. k*8 + 7 (eight), interval 5 * (k + 1), enabled for
  polling unless k % 5 == 4, a write command when k % 7 == 3.

Run it from this folder after changing the case; it rewrites both files with CR LF line ends.
"""

SLOTS = 50
ARGS = 8


def command(k):
    return {
        "number": 128 + k,
        "args": [k * ARGS + j for j in range(ARGS)],
        "interval": 5 * (k + 1),
        "poll": 0 if k % 5 == 4 else 1,
        "write": 1 if k % 7 == 3 else 0,
    }


devices = [
    {"type": "Generic", "poll": 3, "enable": 1, "commands": []},
    {"type": "Generic", "poll": 9, "enable": 1, "commands": [command(k) for k in range(SLOTS)]},
]
row = ["Generic", "gen_dev.ini", "gen_mb1.ini", "gen_mb2.ini", "gen_mb3.ini", "gen_dmb.ini"]

swap = 2 * 1 + 4 * 1 + 8 * 0
mode = 2  # BRIDGE CLIENT

ct = [
    "; --- CREATED BY TGXCONFIGTOOL APPLICATION              ---",
    "; --- DO NOT EDIT MANUALLY                              ---",
    ";",
    "; System database and settings",
    "; " + "~" * 28,
    f"#include defstmpl.ini(Line_4,1,{len(devices)},{swap},{mode},192.168.7.20,50002,20,1,pool.ntp.org)",
    f"#include hartlooptmpl.ini(0,{len(devices)})",
    "#include fimportstmpl.ini(4,MODEM,RS232,9600,8,1,NOPARITY,1)",
    "#include inetdtmpl.ini(502,772,1100,503,50000,5094)",
    ";",
    "; Device database and settings",
    "; " + "~" * 28,
]
ct += [f"#include {row[1]}(0,{i},{d['poll']})" for i, d in enumerate(devices)]
ct += [";", "; System modbus items", "; " + "~" * 19, "#include systemmb.ini"]
for column in (2, 3, 4):
    ct += [f"#include {row[column]}(0,{i})" for i in range(len(devices))]
ct += ["#include hartloopmbtmpl.ini(0)", ";", "; Device modbus items", "; " + "~" * 19]
ct += [f"#include {row[5]}(0,{i})" for i in range(len(devices))]
ct += [";", "; END"]


def padded(values, total, fill):
    return "".join(f",{v}" for v in values + [fill] * (total - len(values)))


db = [f"1,SYS:OPERMODE,{mode}", "1,L0:NANCTRL,1", "1,L0:MADDR,1"]  # "OFF" gives no DEFERMODE line
for i, d in enumerate(devices):
    cmds = d["commands"]
    db += [f"1,L0D{i}:ENABLE,{d['enable']}"] * 2
    db.append(f"1,L0D{i}:MSGCMDNO" + padded([c["number"] for c in cmds], SLOTS, 0))
    db.append(f"1,L0D{i}:MSGCMDNOWR" + padded([c["write"] for c in cmds], SLOTS, 0))
    db.append(f"1,L0D{i}:MSGPOLLTM" + padded([c["interval"] if c["poll"] == 1 else -1 for c in cmds], SLOTS, -1))
    for k in range(SLOTS):
        args = cmds[k]["args"] if k < len(cmds) else []
        db.append(f"1,L0D{i}:CMDARGS{k + 1}" + padded(args, ARGS, -1))

for name, lines in (("ct.ini", ct), ("dbsave.txt", db)):
    with open(name, "w", newline="") as out:
        out.write("".join(line + "\r\n" for line in lines))
