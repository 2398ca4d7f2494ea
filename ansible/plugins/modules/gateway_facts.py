#!/usr/bin/python
# -*- coding: utf-8 -*-
"""tarn.tgx.gateway_facts: what a TG7-Plus gateway is and runs, as facts (tgxcfg info)."""

DOCUMENTATION = r'''
module: gateway_facts
short_description: A TG7-Plus gateway's versions and project as facts
description:
  - Runs C(tgxcfg info) on the gateway and sets the fact C(tgx_gateway) to its JSON document, with
    the device type, the gateway's firmware and templates versions (as C(ttdevtype) reports them),
    the versions the installation is built for, whether the firmware is the installation's, and a
    summary of the project the gateway runs (tag name, mode, map, devices).
  - Changes nothing, on the gateway or on the controller.
version_added: 1.0.0
author: TARN SYSTEMS LTD
extends_documentation_fragment: tarn.tgx.tgxcfg
attributes:
  check_mode:
    support: full
  diff_mode:
    support: none
'''

EXAMPLES = r'''
- name: Read what the gateways run
  tarn.tgx.gateway_facts:

- name: Report gateways on an older firmware
  ansible.builtin.debug:
    msg: "{{ inventory_hostname }} runs {{ tgx_gateway.firmware }}, the installation {{ tgx_gateway.installation.firmware }}"
  when: not tgx_gateway.firmwareMatches

- name: The gateway in the cabinet of line 4 answers to another address
  tarn.tgx.gateway_facts:
    target: 10.0.4.11:2222
    software_path: /opt/tgx
'''

RETURN = r'''
ansible_facts:
  description: The facts set.
  returned: success
  type: dict
  contains:
    tgx_gateway:
      description: The document of C(tgxcfg info --format=json) (see tgxcfg's manual for every key).
      type: dict
      contains:
        deviceType:
          description: The device type, the first line of C(ttdevtype)'s report.
          type: str
          sample: TG7-Plus
        firmware:
          description: The gateway's firmware version.
          type: str
          sample: 6.2.2
        templates:
          description: The gateway's templates version.
          type: str
          sample: 3.1.0
        installation:
          description: The C(firmware) and C(templates) versions the installation is built for.
          type: dict
          sample: {"firmware": "6.2.2", "templates": "3.1.0"}
        firmwareMatches:
          description: Whether the gateway runs the installation's firmware (configure refuses it otherwise).
          type: bool
        project:
          description:
            - The project the gateway runs, C(tagName), C(mode), C(automaticMap), C(mapLines) and
              C(devices) (each with C(slot), C(name), C(type), C(pollAddress), C(longAddress), C(enabled)).
            - C(null) when the gateway has no project that could be fetched.
          type: dict
          sample: {"tagName": "BOILER1", "mode": "GATEWAY", "automaticMap": false, "mapLines": 5, "devices": []}
        projectProblem:
          description: The fetch's message when C(project) is null, else null.
          type: str
          sample: Failed to obtain configuration from TG7.
'''

from ansible.module_utils.basic import AnsibleModule
from ansible_collections.tarn.tgx.plugins.module_utils.tgxcfg import TGXCFG_ARGUMENTS, Tgxcfg


def main():
    module = AnsibleModule(argument_spec=dict(TGXCFG_ARGUMENTS), supports_check_mode=True)
    module.exit_json(changed=False, ansible_facts=dict(tgx_gateway=Tgxcfg(module).info()))


if __name__ == '__main__':
    main()
