# -*- coding: utf-8 -*-
"""tarn.tgx.gateway_config on the controller: the gateway's address defaults to the host's (GatewayAction)."""

from ansible_collections.tarn.tgx.plugins.plugin_utils.gateway_action import GatewayAction as ActionModule  # noqa: F401
