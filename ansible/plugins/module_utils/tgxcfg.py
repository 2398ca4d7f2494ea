# -*- coding: utf-8 -*-
"""tgxcfg for the modules of tarn.tgx: its command line, its JSON documents and its failures."""

import json
import os

# The options every module of the collection takes (doc fragment tarn.tgx.tgxcfg).
TGXCFG_ARGUMENTS = dict(
    target=dict(type='str', required=True),
    tgxcfg=dict(type='str', default='tgxcfg'),
    software_path=dict(type='path'),
)

# What tgxcfg says when the gateway's project cannot be fetched: a gateway that has none says so.
NO_PROJECT_MESSAGE = 'Failed to obtain configuration from TG7.'


def target_problem(target):
    """Why TARGET is not HOST or HOST:PORT as tgxcfg takes it (split at the last colon), or None."""
    host, colon, port = target.rpartition(':') if ':' in target else (target, '', '')
    if not host or host.startswith('-') or any(
            c <= ' ' or c in '"\'`\x7f' or '\x80' <= c < '\xa0' for c in host):
        return ('target must be HOST or HOST:PORT; the host may hold no blank, quote or control '
                'character and may not start with "-": %r' % target)
    if colon and not (port.isascii() and port.isdigit() and len(port) <= 5 and 1 <= int(port) <= 65535):
        return 'the PORT of target must be a number from 1 to 65535: %r' % target
    return None


def map_file(project):
    """The map file beside a project: its name with the extension .mbd."""
    return os.path.splitext(project)[0] + '.mbd'


class Tgxcfg:
    """Runs tgxcfg for a module on the gateway its `target` names."""

    def __init__(self, module):
        self.module = module
        self.target = module.params['target']
        problem = target_problem(self.target)
        if problem:
            module.fail_json(msg=problem)
        program = module.params['tgxcfg']
        self.program = program if os.sep in program else module.get_bin_path(program, required=True)

    def run(self, command, *arguments, target=True):
        """tgxcfg COMMAND [--target=TARGET] ARGUMENTS: (status, standard output, standard error)."""
        line = [self.program]
        if self.module.params['software_path']:
            line.append('--software-path=' + self.module.params['software_path'])
        line += [command] + (['--target=' + self.target] if target else []) + list(arguments)
        return self.module.run_command(line)

    def fail(self, command, status, out, err, **result):
        """Ends the module with tgxcfg's message and status."""
        lines = (err.strip() or out.strip()).splitlines()
        message = ' '.join(line.strip() for line in lines if line.strip()) or 'no message'
        self.module.fail_json(msg='tgxcfg %s failed with status %d: %s' % (command, status, message),
                              rc=status, stdout=out, stderr=err, **result)

    def document(self, command, out, err):
        """The JSON document tgxcfg printed."""
        try:
            return json.loads(out)
        except ValueError as error:
            self.module.fail_json(msg='tgxcfg %s printed no JSON document: %s' % (command, error),
                                  stdout=out, stderr=err)

    def info(self):
        """tgxcfg info as data: the gateway's versions, the installation's and its project's summary."""
        status, out, err = self.run('info', '--format=json')
        if status != 0:
            self.fail('info', status, out, err)
        return self.document('info', out, err)
