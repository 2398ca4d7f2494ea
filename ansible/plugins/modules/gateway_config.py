#!/usr/bin/python
# -*- coding: utf-8 -*-
"""tarn.tgx.gateway_config: a TG7-Plus gateway runs a project (tgxcfg diff, configure), or is backed up (fetch)."""

DOCUMENTATION = r'''
module: gateway_config
short_description: A TG7-Plus gateway runs a given project, or its project is backed up
description:
  - With I(state=configured) the gateway is made to run I(project). The project is first compared with
    the one the gateway runs (C(tgxcfg diff PROJECT --target=TARGET --format=json)); only when they
    differ is the gateway configured (C(tgxcfg configure PROJECT --target=TARGET --yes)), which
    checks the firmware, builds the configuration, uploads it and restarts the gateway. A gateway without a project
    is configured. In check mode only the comparison runs; with C(--diff) the differences are shown,
    the gateway's values before, the project's after.
  - Configure saves the project it sends. The module works on a copy of I(project) and its map file
    in a temporary folder, so the files given are never written.
  - With I(state=backed_up) the project and Modbus map that the gateway runs are fetched
    (C(tgxcfg fetch)) and kept as I(dest) with its map file (same name, extension C(.mbd)) beside
    it; changed only when either file's content changed.
version_added: 1.0.0
author: TARN SYSTEMS LTD
extends_documentation_fragment: tarn.tgx.tgxcfg
options:
  state:
    description:
      - C(configured), the gateway runs I(project); C(backed_up), what the gateway runs is kept in I(dest).
    type: str
    choices: [configured, backed_up]
    default: configured
  project:
    description:
      - The project file (C(.prj)) to run, its map file beside it (C(.mbd), else the older C(.mb)).
        Required with I(state=configured).
      - In automatic map mode the map sent is the one generated from the installation's templates.
    type: path
  tag:
    description:
      - The gateway's tag name, letters and digits, of which the gateway keeps the first 8; by default
        the project's. A gateway whose tag name is this one is not configured for that alone, so one
        project can serve several gateways.
      - Without it, a project whose tag name is longer than 8 characters differs from the gateway
        after every configure (C(tgxcfg check) reports such a tag name).
    type: str
  dest:
    description:
      - The backup's project file; its map file is written beside it with the extension C(.mbd).
        Missing folders are created. Required with I(state=backed_up).
    type: path
attributes:
  check_mode:
    support: full
  diff_mode:
    support: full
'''

EXAMPLES = r'''
- name: Each gateway runs its project from version control
  hosts: gateways
  connection: local
  gather_facts: false
  tasks:
    - name: Configure where the gateway differs
      tarn.tgx.gateway_config:
        project: "{{ playbook_dir }}/projects/{{ inventory_hostname }}.prj"

- name: Drift report, changing nothing (ansible-playbook --check --diff)
  tarn.tgx.gateway_config:
    project: "{{ playbook_dir }}/projects/{{ inventory_hostname }}.prj"
  check_mode: true
  delegate_to: localhost

- name: One project for the whole line, each gateway with its own tag name
  tarn.tgx.gateway_config:
    project: /srv/fleet/line4.prj
    tag: "{{ inventory_hostname | upper | regex_replace('[^A-Z0-9]', '') }}"

- name: Keep what each gateway runs
  tarn.tgx.gateway_config:
    state: backed_up
    dest: "/srv/backup/{{ inventory_hostname }}.prj"
'''

RETURN = r'''
differences:
  description:
    - With I(state=configured), what differed before the task, as C(tgxcfg diff --format=json) lists it
      (C(kind), C(change), C(subject), C(before) the project's value, C(after) the gateway's); empty when
      nothing did, or when the gateway had no project.
  returned: state is configured
  type: list
  elements: dict
  sample: [{"kind": "setting", "change": "changed", "subject": "SERIAL PORT BAUDRATE", "before": "9600", "after": "19200"}]
gateway_had_project:
  description: Whether the gateway's project could be fetched for the comparison.
  returned: state is configured
  type: bool
dest:
  description: The backup's project file.
  returned: state is backed_up
  type: str
map:
  description: The backup's map file.
  returned: state is backed_up
  type: str
stdout:
  description: What tgxcfg configure printed, when it ran.
  returned: changed and not in check mode
  type: str
'''

import filecmp
import os
import shutil
import tempfile

from ansible.module_utils.basic import AnsibleModule
from ansible_collections.tarn.tgx.plugins.module_utils.tgxcfg import (NO_PROJECT_MESSAGE, TGXCFG_ARGUMENTS, Tgxcfg,
                                                                      map_file)


def copy_project(project, folder):
    """PROJECT and its map file (.mbd, .mb) copied into FOLDER under their names: the copy's path."""
    copy = os.path.join(folder, os.path.basename(project))
    shutil.copyfile(project, copy)
    for extension in ('.mbd', '.mb'):
        beside = os.path.splitext(project)[0] + extension
        if os.path.isfile(beside):
            shutil.copyfile(beside, os.path.splitext(copy)[0] + extension)
    return copy


def side(differences, key):
    """One side of the differences as lines, 'SUBJECT: VALUE', the side's missing entries left out."""
    return ''.join('%s: %s\n' % (d['subject'], d[key]) for d in differences if d[key] is not None)


def configured(module, tgxcfg):
    project = os.path.abspath(module.params['project'])
    tag = module.params['tag']
    if not os.path.isfile(project):
        module.fail_json(msg='project %s is not a file' % project)
    with tempfile.TemporaryDirectory(prefix='tgx-', dir=module.tmpdir) as folder:
        copy = copy_project(project, folder)
        status, out, err = tgxcfg.run('diff', copy, '--format=json')
        had_project = status == 0 or bool(out.strip())
        if not had_project and err.strip() != NO_PROJECT_MESSAGE:
            tgxcfg.fail('diff', status, out, err)
        differences = tgxcfg.document('diff', out, err)['differences'] if had_project else []
        if tag is not None:
            # The tag name given is the gateway's, whatever the project's.
            differences = [d for d in differences if not (d['kind'] == 'setting' and d['subject'] == 'TGX TAGNAME'
                                                          and d['after'] == tag[:8])]
        result = dict(changed=bool(differences) or not had_project, differences=differences,
                      gateway_had_project=had_project)
        if module._diff:
            after = side(differences, 'before')
            if not had_project:  # the whole project is new to the gateway
                status, after, err = tgxcfg.run('show', copy, target=False)
                if status != 0:
                    tgxcfg.fail('show', status, after, err)
            result['diff'] = dict(before=side(differences, 'after'), after=after,
                                  before_header='%s (%s)' % (tgxcfg.target, 'the project it runs' if had_project
                                                             else 'no project'),
                                  after_header=project)
        if not result['changed'] or module.check_mode:
            return result
        arguments = [copy, '--yes'] + (['--tag=' + tag] if tag is not None else [])
        status, out, err = tgxcfg.run('configure', *arguments)
        if status != 0:
            tgxcfg.fail('configure', status, out, err, differences=differences)
        result['stdout'] = out
        return result


def read_text(path):
    if not os.path.isfile(path):
        return ''
    with open(path, 'rb') as file:
        return file.read().decode('utf-8', errors='replace')


def backed_up(module, tgxcfg):
    dest = os.path.abspath(module.params['dest'])
    result = dict(changed=False, dest=dest, map=map_file(dest))
    with tempfile.TemporaryDirectory(prefix='tgx-', dir=module.tmpdir) as folder:
        fetched = os.path.join(folder, os.path.basename(dest))
        status, out, err = tgxcfg.run('fetch', fetched)
        if status != 0:
            tgxcfg.fail('fetch', status, out, err, **result)
        pairs = [(fetched, dest), (map_file(fetched), map_file(dest))]
        changed = [(new, old) for new, old in pairs
                   if not os.path.isfile(old) or not filecmp.cmp(new, old, shallow=False)]
        result['changed'] = bool(changed)
        if module._diff:
            result['diff'] = [dict(before=read_text(old), after=read_text(new), before_header=old,
                                   after_header='%s (%s)' % (tgxcfg.target, os.path.basename(old)))
                              for new, old in changed]
        if changed and not module.check_mode:
            os.makedirs(os.path.dirname(dest), exist_ok=True)
            for new, old in changed:
                module.atomic_move(new, old)
    return result


def main():
    module = AnsibleModule(
        argument_spec=dict(TGXCFG_ARGUMENTS, state=dict(type='str', choices=['configured', 'backed_up'],
                                                        default='configured'),
                           project=dict(type='path'), tag=dict(type='str'), dest=dict(type='path')),
        required_if=[('state', 'configured', ['project']), ('state', 'backed_up', ['dest'])],
        supports_check_mode=True)
    tgxcfg = Tgxcfg(module)
    state = module.params['state']
    module.exit_json(**(configured(module, tgxcfg) if state == 'configured' else backed_up(module, tgxcfg)))


if __name__ == '__main__':
    main()
