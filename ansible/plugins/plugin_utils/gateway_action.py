# -*- coding: utf-8 -*-
"""The action behind every module of tarn.tgx: the gateway's address defaults to the host's."""

from ansible.plugins.action import ActionBase


class GatewayAction(ActionBase):
    """Runs the module of the task with `target` defaulting to ansible_host, else the host's name."""

    def run(self, tmp=None, task_vars=None):
        task_vars = task_vars or {}
        result = super().run(tmp, task_vars)
        arguments = dict(self._task.args)
        if arguments.get('target') is None:
            # With delegate_to the host's own variables are still these: the gateway, not localhost.
            host = task_vars.get('ansible_host') or task_vars.get('inventory_hostname')
            arguments['target'] = self._templar.template(host)
        result.update(self._execute_module(module_args=arguments, task_vars=task_vars))
        self._remove_tmp_path(self._connection._shell.tmpdir)
        return result
