#!/usr/bin/env python3
"""Writes the expected INCLUDE/ct.ini and ADDITIONAL/dbsave.txt of `tgxcfg generate` for two of
the example projects in docs/examples, from the rules of the two files and the device types of
the sample installation (simulator/installation/tgxtemplates/BUILD/ct.cfg).

The projects are written out below as data, read off the .prj files by hand. Run this from its
folder after changing an example project; it rewrites <project>/ct.ini and <project>/dbsave.txt
with CR LF line ends.
"""
import os

HERE = os.path.dirname(os.path.abspath(__file__))
CT_CFG = os.path.join(HERE, "../../../simulator/installation/tgxtemplates/BUILD/ct.cfg")
SLOTS, ARGS = 50, 8
MODE_CODES = {"GATEWAY": 0, "BRIDGE SERVER": 1, "BRIDGE CLIENT": 2, "MULTIPLEXOR": 3}
DEFER_CODES = {"NONE": 0, "PARTIAL": 1, "FULL": 2}


def cmd(number, interval, poll, write, args=()):
    return {"number": number, "interval": interval, "poll": poll, "write": write, "args": list(args)}


def dev(type_, poll, long_address, enable, commands):
    return {"type": type_, "poll": poll, "long": long_address, "enable": enable, "commands": commands}


COMMON = {"remote": "0.0.0.0", "buffer": 20, "tms_enable": 1, "tms": "pool.ntp.org", "swap": (0, 1, 0),
          "ports": (502, 772, 1100, 503, 50000, 5094), "function": "MODEM", "stop": 1, "rtu": 1, "master": 1}

PROJECTS = {
    "boiler_house": dict(COMMON, tag="BOILER1", mode="GATEWAY", defer="PARTIAL", nan=1, port_type="RS485",
                         baud=19200, parity="ODDPARITY", devices=[
        dev("EHPromag", 0, "", 1, [cmd(2, 1, 1, 0), cmd(3, 1, 1, 0), cmd(9, 10, 1, 0, [1, 2, 3, 4])]),
        dev("Rosemount3051", 1, "", 1, [cmd(2, 1, 1, 0), cmd(3, 1, 1, 0), cmd(48, 60, 1, 0)]),
        dev("VegaPuls", 2, "", 1, [cmd(2, 1, 1, 0), cmd(3, 5, 0, 0), cmd(35, 1, 1, 1, [0, 12])]),
        dev("EHTMT82", 5, "", 0, [cmd(2, 1, 1, 0), cmd(3, 1, 1, 0)]),
    ]),
    "tank_farm_mux": dict(COMMON, tag="TANKFARM", mode="MULTIPLEXOR", defer="FULL", nan=0, port_type="RS485",
                          baud=38400, parity="ODDPARITY", devices=[
        dev("KFD2", 0, "0000000000", 1, [cmd(0, 5, 1, 0)]),
        dev("VegaPuls", 0, "2600123401", 1, [cmd(2, 1, 1, 0), cmd(3, 1, 1, 0)]),
        dev("VegaPuls", 0, "2600123402", 1, [cmd(2, 1, 1, 0), cmd(3, 1, 1, 0)]),
        dev("EHTMT82", 0, "1100998877", 1, [cmd(2, 1, 1, 0), cmd(3, 1, 1, 0)]),
    ]),
}


def device_types():
    rows = []
    with open(CT_CFG) as f:
        for line in f:
            if line.startswith("DEV_TYPE "):
                tokens = line[len("DEV_TYPE "):].split()
                if len(tokens) == 6:
                    rows.append(tokens)
    return rows


def ct_ini(p, rows):
    mode = MODE_CODES[p["mode"]]
    swap = 2 * p["swap"][0] + 4 * p["swap"][1] + 8 * p["swap"][2]
    devices = p["devices"]
    n = len(devices)
    matches = [[r for r in rows if r[0] == d["type"]] for d in devices]
    ct = [
        "; --- CREATED BY TGXCONFIGTOOL APPLICATION              ---",
        "; --- DO NOT EDIT MANUALLY                              ---",
        ";", "; System database and settings", "; " + "~" * 28,
        f"#include defstmpl.ini({p['tag']},1,{n},{swap},{mode},{p['remote']},50002,{p['buffer']},"
        f"{p['tms_enable']},{p['tms']})",
        f"#include hartlooptmpl.ini(0,{n})",
        f"#include fimportstmpl.ini(4,{p['function']},{p['port_type']},{p['baud']},8,{p['stop']},{p['parity']},"
        f"{p['rtu']})",
        "#include inetdtmpl.ini(" + ",".join(str(x) for x in p["ports"]) + ")",
        ";", "; Device database and settings", "; " + "~" * 28,
    ]
    for i, d in enumerate(devices):
        address = d["long"] if mode == 3 else d["poll"]
        ct += [f"#include {r[1]}(0,{i},{address})" for r in matches[i]]
    ct += [";", "; System modbus items", "; " + "~" * 19, "#include systemmb.ini"]
    for column in (2, 3, 4):
        ct += [f"#include {r[column]}(0,{i})" for i in range(n) for r in matches[i]]
    ct += ["#include hartloopmbtmpl.ini(0)", ";", "; Device modbus items", "; " + "~" * 19]
    ct += [f"#include {r[5]}(0,{i})" for i in range(n) for r in matches[i]]
    ct += [";", "; END"]
    return ct


def padded(values, total, fill):
    return "".join(f",{v}" for v in values + [fill] * (total - len(values)))


def dbsave(p):
    db = [f"1,SYS:OPERMODE,{MODE_CODES[p['mode']]}", f"1,SYS:DEFERMODE,{DEFER_CODES[p['defer']]}",
          f"1,L0:NANCTRL,{p['nan']}", f"1,L0:MADDR,{p['master']}"]
    for i, d in enumerate(p["devices"]):
        cmds = d["commands"]
        db += [f"1,L0D{i}:ENABLE,{d['enable']}"] * 2
        db.append(f"1,L0D{i}:MSGCMDNO" + padded([c["number"] for c in cmds], SLOTS, 0))
        db.append(f"1,L0D{i}:MSGCMDNOWR" + padded([c["write"] for c in cmds], SLOTS, 0))
        db.append(f"1,L0D{i}:MSGPOLLTM" + padded([c["interval"] if c["poll"] == 1 else -1 for c in cmds], SLOTS, -1))
        for k in range(SLOTS):
            args = cmds[k]["args"] if k < len(cmds) else []
            db.append(f"1,L0D{i}:CMDARGS{k + 1}" + padded(args, ARGS, -1))
    return db


rows = device_types()
for name, project in PROJECTS.items():
    os.makedirs(os.path.join(HERE, name), exist_ok=True)
    for file, lines in (("ct.ini", ct_ini(project, rows)), ("dbsave.txt", dbsave(project))):
        with open(os.path.join(HERE, name, file), "w", newline="") as out:
            out.write("".join(line + "\r\n" for line in lines))
