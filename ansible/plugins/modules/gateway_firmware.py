#!/usr/bin/python
# -*- coding: utf-8 -*-
"""tarn.tgx.gateway_firmware: the gateway on the installation's firmware (tgxcfg update-firmware)."""

DOCUMENTATION = r'''
module: gateway_firmware
short_description: A TG7-Plus gateway on the firmware of the installation
description:
  - Makes the gateway run the firmware the installation is built for (its C(FirmwareVersion)), as
    Target > Update Firmware does (C(tgxcfg update-firmware --yes)). The firmware package, the
    manuals and the web page go to the gateway, whose own project is then rebuilt and uploaded, and
    the gateway restarts.
  - Idempotent on the version. C(tgxcfg info) is asked first, and a gateway that already runs the
    installation's firmware is left alone. After an update the gateway is asked again, and a version
    that is still not the installation's fails the task.
  - In check mode only the versions are read.
version_added: 1.0.0
author: TARN SYSTEMS LTD
extends_documentation_fragment: tarn.tgx.tgxcfg
options:
  state:
    description:
      - C(current), the only state, makes the gateway run the installation's firmware.
    type: str
    choices: [current]
    default: current
attributes:
  check_mode:
    support: full
  diff_mode:
    support: full
'''

EXAMPLES = r'''
- name: Every gateway on the installation's firmware, two at a time
  hosts: gateways
  connection: local
  serial: 2
  tasks:
    - name: Update the firmware where it is older
      tarn.tgx.gateway_firmware:
'''

RETURN = r'''
firmware:
  description: The gateway's firmware version at the end.
  returned: success
  type: str
  sample: 6.2.2
previous_firmware:
  description: The gateway's firmware version before the task.
  returned: success
  type: str
  sample: 6.1.0
stdout:
  description: What tgxcfg update-firmware printed, when it ran.
  returned: changed and not in check mode
  type: str
'''

from ansible.module_utils.basic import AnsibleModule
from ansible_collections.tarn.tgx.plugins.module_utils.tgxcfg import TGXCFG_ARGUMENTS, Tgxcfg


def main():
    module = AnsibleModule(argument_spec=dict(TGXCFG_ARGUMENTS, state=dict(type='str', choices=['current'],
                                                                           default='current')),
                           supports_check_mode=True)
    tgxcfg = Tgxcfg(module)
    before = tgxcfg.info()
    wanted = before['installation']['firmware']
    result = dict(changed=not before['firmwareMatches'], previous_firmware=before['firmware'],
                  firmware=before['firmware'])
    if module._diff:
        result['diff'] = dict(before='firmware: %s\n' % before['firmware'], after='firmware: %s\n' % wanted,
                              before_header=tgxcfg.target, after_header='the installation')
    if not result['changed'] or module.check_mode:
        module.exit_json(**result)

    status, out, err = tgxcfg.run('update-firmware', '--yes')
    if status != 0:
        tgxcfg.fail('update-firmware', status, out, err, previous_firmware=before['firmware'])
    after = tgxcfg.info()
    result.update(firmware=after['firmware'], stdout=out)
    if not after['firmwareMatches']:
        module.fail_json(msg='tgxcfg update-firmware ended with status 0, but the gateway reports firmware %s, '
                             'not the installation\'s %s' % (after['firmware'], wanted), **result)
    module.exit_json(**result)


if __name__ == '__main__':
    main()
