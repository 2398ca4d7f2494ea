# -*- coding: utf-8 -*-
"""The options every module of tarn.tgx takes: the gateway and the tgxcfg that reaches it."""


class ModuleDocFragment:
    DOCUMENTATION = r'''
options:
  target:
    description:
      - The gateway's address, C(HOST) or C(HOST:PORT); a PORT reaches the suite's tools as their
        SSH port (C(TT_SSH_PORT)).
      - Defaults to the inventory host's C(ansible_host), else its inventory name.
      - A target that tgxcfg would refuse (blanks, quotes, control characters, a leading C(-), a
        port outside 1..65535) is refused before anything runs.
    type: str
  tgxcfg:
    description:
      - The tgxcfg program; a name without a path is looked up on C(PATH).
    type: str
    default: tgxcfg
  software_path:
    description:
      - The installation of the TGx Software Suite to use (tgxcfg C(--software-path)); its
        templates, build folder and firmware. By default the installation the registry names
        (on Linux the registry file of C(TGX_REGISTRY)).
    type: path
notes:
  - The module runs tgxcfg on the machine it runs on, so run it on the controller, with the
    C(local) connection for the gateways or delegated to C(localhost); one gateway per inventory
    host.
  - Runs on one installation take turns over its build folder, so forks may be set as high as the
    gateways allow.
requirements:
  - tgxcfg 6.2.2 or later (with its C(info) command) and the TGx Software Suite's tools on C(PATH)
'''
