#!/usr/bin/env bash
# The Ansible collection (ansible/) with the real engine: built with ansible-galaxy, installed from
# its tarball into a scratch folder, and run by ansible-playbook with 4 forks over four simulated
# gateways (127.0.0.2-5) on a copy of the sample installation. Offline; everything ansible, tgxcfg
# and the simulator write stays in the scratch folder.
#   tests/ansible/fleet_test.sh TGXCFG SIMULATOR_BIN
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
top=$(cd "$here/../.." && pwd)
tgxcfg=$(realpath "${1:?tgxcfg program}")
simbin=$(realpath "${2:?simulator bin folder}")

scratch=$(mktemp -d "${TMPDIR:-/tmp}/tgx-ansible.XXXXXX")
trap 'code=$?; [ $code -eq 0 ] || echo "fleet test: failed ($code); its files are in $scratch" >&2' EXIT
fail() { echo "fleet test: $*" >&2; exit 1; }

# The installation, its registry file, the gateways' state, and one project per gateway.
cp -r "$top/simulator/installation" "$scratch/installation"
mkdir -p "$scratch/projects" "$scratch/drift" "$scratch/home" "$scratch/tmp" "$scratch/gateway"
printf '[HKEY_CURRENT_USER/Software/TARN SYSTEMS LTD/TGx Software Suite]\nPath=%s/installation/\nVersion=6.2.2\nFirmwareVersion=6.2.2\nTemplatesVersion=3.1.0\n' \
  "$scratch" >"$scratch/registry.ini"
example=$top/docs/examples/boiler_house
for host in gw2 gw3; do
  sed "s/^TGX TAGNAME:BOILER1/TGX TAGNAME:${host^^}/" "$example.prj" >"$scratch/projects/$host.prj"
  cp "$example.mbd" "$scratch/projects/$host.mbd"
done
cp "$example.prj" "$scratch/projects/line.prj"  # gw4's and gw5's, its tag name BOILER1
cp "$example.mbd" "$scratch/projects/line.mbd"
export TGX_REGISTRY=$scratch/registry.ini TGX_DOCUMENTS=$scratch/Documents TGXSIM_HOME=$scratch/gateway
export PATH=$simbin:$(dirname "$tgxcfg"):$PATH HOME=$scratch/home TMPDIR=$scratch/tmp
export ANSIBLE_CONFIG=$scratch/ansible.cfg ANSIBLE_HOME=$scratch/ansible ANSIBLE_LOCAL_TEMP=$scratch/ansible/tmp
export ANSIBLE_REMOTE_TEMP=$scratch/ansible/remote-tmp ANSIBLE_COLLECTIONS_PATH=$scratch/collections
export ANSIBLE_NOCOLOR=1 ANSIBLE_RETRY_FILES_ENABLED=0 PYTHONDONTWRITEBYTECODE=1
printf '[defaults]\ninventory = %s/inventory.ini\nforks = 4\n' "$here" >"$ANSIBLE_CONFIG"
cd "$scratch"

ansible-galaxy collection build "$top/ansible" --output-path "$scratch" >/dev/null
ansible-galaxy collection install --offline "$scratch"/tarn-tgx-*.tar.gz >/dev/null
ansible-doc tarn.tgx.gateway_config tarn.tgx.gateway_facts tarn.tgx.gateway_firmware >doc.txt
[ "$(grep -c '^EXAMPLES:' doc.txt)" -eq 3 ] && [ "$(grep -c '^RETURN VALUES:' doc.txt)" -eq 3 ] ||
  fail "ansible-doc does not show the three modules' examples and return values"

run=0
play() {  # ARGS...: runs the playbook into play-N.log; its status in $status
  run=$((run + 1))
  status=0
  ansible-playbook "$here/fleet.yml" -e "scratch=$scratch" "$@" >"play-$run.log" 2>&1 || status=$?
}
# The recap: "HOST : ok=N changed=N unreachable=N failed=N ..." of the last run, for each host.
expect_recap() {  # HOST=changed/failed ...
  local want host counts got
  for want in "$@"; do
    host=${want%%=*} counts=${want#*=}
    got=$(awk -v h="$host" '$1 == h && $2 == ":" { for (i = 3; i <= NF; i++) { split($i, kv, "="); c[kv[1]] = kv[2] } print c["changed"] "/" c["failed"] }' "play-$run.log")
    [ "$got" = "$counts" ] || fail "run $run: $host changed/failed $got, expected $counts (play-$run.log)"
  done
}
snapshot() { (cd "$TGXSIM_HOME/gateways/$1" && find . -type f | sort | xargs sha256sum); }
sum_projects() { (cd "$scratch/projects" && sha256sum ./*); }

projects_before=$(sum_projects)
tgxsim --gateway=127.0.0.3 set firmware 6.1.0 >/dev/null

# 1. Everything to do: every gateway configured and backed up, 127.0.0.3's firmware updated first.
play
[ "$status" -eq 0 ] || fail "run 1 ended with $status (play-1.log)"
expect_recap gw2=2/0 gw3=3/0 gw4=2/0 gw5=2/0
for n in 2 3 4 5; do
  cmp -s "backups/gw$n.prj" "$TGXSIM_HOME/gateways/127.0.0.$n/TG7/tgxconfig.prj" ||
    fail "backups/gw$n.prj is not the project 127.0.0.$n runs"
done
[ "$(sum_projects)" = "$projects_before" ] || fail "the modules wrote the projects they were given"

# 2. Nothing to do.
play
[ "$status" -eq 0 ] || fail "run 2 ended with $status (play-2.log)"
expect_recap gw2=0/0 gw3=0/0 gw4=0/0 gw5=0/0

# 3. A drift on 127.0.0.4 (another project configured onto it): check mode reports it, with the
#    gateway's value before and the project's after, and leaves the gateway as it is.
sed 's/^SERIAL PORT BAUDRATE:19200/SERIAL PORT BAUDRATE:9600/' projects/line.prj >drift/line.prj
cp projects/line.mbd drift/line.mbd
tgxcfg configure drift/line.prj --target=127.0.0.4 --tag=GW4 --yes >/dev/null
gateway4=$(snapshot 127.0.0.4)
play --check --diff --tags configure
[ "$status" -eq 0 ] || fail "run 3 ended with $status (play-3.log)"
expect_recap gw2=0/0 gw3=0/0 gw4=1/0 gw5=0/0
# The tag name given is no difference.
[ "$(grep -E '^[-+][A-Z]' play-3.log)" = $'-SERIAL PORT BAUDRATE: 9600\n+SERIAL PORT BAUDRATE: 19200' ] ||
  fail "run 3 does not show the drift alone as a diff (play-3.log)"
[ "$(snapshot 127.0.0.4)" = "$gateway4" ] || fail "check mode changed 127.0.0.4's files"

# 4. 127.0.0.5 drifted too, but its uploads fail: only its host fails, 127.0.0.4 is put right (its
#    backup stays: it is what 127.0.0.4 ran before the drift).
tgxcfg configure drift/line.prj --target=127.0.0.5 --tag=GW5 --yes >/dev/null
tgxsim fault add ttrestore match=127.0.0.5 exit=3 >/dev/null
play
[ "$status" -eq 2 ] || fail "run 4 ended with $status, expected 2: a host failed (play-4.log)"
expect_recap gw2=0/0 gw3=0/0 gw4=1/0 gw5=0/1
grep -qF '"msg": "tgxcfg configure failed with status 1: Failed to upload configuration files to TG7 - (ttrestore returned 3).' play-4.log ||
  fail "run 4 does not give tgxcfg's message for 127.0.0.5 (play-4.log)"
[ "$(tgxcfg diff projects/line.prj --target=127.0.0.4)" = "TGX TAGNAME: BOILER1 -> GW4" ] ||
  fail "127.0.0.4 does not run its project after run 4"

# 5. A target tgxcfg would refuse is refused by the module, before anything runs.
status=0
ansible localhost -m tarn.tgx.gateway_facts -a 'target="127.0.0.1 -d"' >refused.log 2>&1 || status=$?
[ "$status" -eq 2 ] && grep -q 'target must be HOST or HOST:PORT' refused.log || fail "a bad target is not refused (refused.log)"

rm -rf "$scratch"
echo "fleet test: 4 gateways, 4 forks: configured, idempotent, drift reported in check mode, one failure kept to its host"
