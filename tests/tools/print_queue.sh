#!/usr/bin/env bash
# print_queue.sh TARVIKCTL QUEUE_PROBE PICTURE: prints to a queue of a scheduler of its own, which stores its jobs as files.
set -eu
ctl=$1
probe=$2
picture=$3
folder=$(mktemp -d)
server=
trap '[ -z "$server" ] || kill "$server"; wait; rm -rf "$folder"' EXIT
chmod 755 "$folder"
mkdir -p "$folder"/{root,spool,cache,run,log,tmp,bin/backend,jobs}
chmod 777 "$folder/jobs"
ln -s /usr/lib/cups/daemon "$folder/bin/daemon"
cat >"$folder/bin/backend/store" <<'END'
#!/bin/sh
# store JOB USER TITLE COPIES OPTIONS FILE; without arguments it lists its devices.
[ $# != 0 ] || { echo 'direct store "Unknown" "Files"'; exit 0; }
umask 022
cat "$6" >"${DEVICE_URI#store:}/$3.part"
echo "$5" >"${DEVICE_URI#store:}/$3.options"
mv "${DEVICE_URI#store:}/$3.part" "${DEVICE_URI#store:}/$3.pdf"
END
printf '#!/bin/sh\n[ $# != 0 ] || { echo "direct broken \\"Unknown\\" \\"Broken\\""; exit 0; }\nexit 1\n' >"$folder/bin/backend/broken"
chmod 755 "$folder/bin/backend/store" "$folder/bin/backend/broken"
cat >"$folder/cups-files.conf" <<END
ServerRoot $folder/root
RequestRoot $folder/spool
CacheDir $folder/cache
StateDir $folder/run
TempDir $folder/tmp
ServerBin $folder/bin
AccessLog $folder/log/access
ErrorLog $folder/log/error
PageLog $folder/log/page
END
cat >"$folder/evidence.ppd" <<'END'
*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "EVIDENCE.PPD"
*Manufacturer: "Test"
*Product: "(Test)"
*ModelName: "Test"
*ShortNickName: "Test"
*NickName: "Test"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*FileSystem: False
*cupsFilter2: "application/pdf application/pdf 0 -"
*OpenUI *PageSize/Media Size: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: ""
*PageSize Letter/Letter: ""
*CloseUI: *PageSize
*OpenUI *PageRegion/Media: PickOne
*DefaultPageRegion: A4
*PageRegion A4/A4: ""
*PageRegion Letter/Letter: ""
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "18 12 577 830"
*ImageableArea Letter/Letter: "18 12 594 780"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
*PaperDimension Letter/Letter: "612 792"
*OpenUI *Resolution/Resolution: PickOne
*DefaultResolution: 600dpi
*Resolution 300dpi/300: ""
*Resolution 600dpi/600: ""
*CloseUI: *Resolution
END

# Tries ports until one is free.
for port in $(shuf -i 20000-60000 -n 20); do
  cat >"$folder/cupsd.conf" <<END
Listen 127.0.0.1:$port
DefaultAuthType None
Browsing No
WebInterface No
<Location />
  Order allow,deny
  Allow 127.0.0.1
</Location>
<Location /admin>
  Order allow,deny
  Allow 127.0.0.1
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
  </Limit>
</Policy>
END
  /usr/sbin/cupsd -f -c "$folder/cupsd.conf" -s "$folder/cups-files.conf" >"$folder/log/out" 2>&1 &
  server=$!
  export CUPS_SERVER=127.0.0.1:$port
  until lpstat -r >"$folder/log/status" 2>&1 && ! grep -q not "$folder/log/status"; do
    kill -0 "$server" 2>/dev/null || { server=; break; }
    read -rt 0.05 <> <(:) || true
  done
  [ -z "$server" ] || break
done
[ -n "$server" ] || { cat "$folder/log/out"; exit 1; }
lpadmin -p evidence -v "store:$folder/jobs" -P "$folder/evidence.ppd" -E 2>/dev/null
lpadmin -d evidence

fail() {
  echo "$1"
  tail -n 20 "$folder/log/error"
  exit 1
}

# The layout is for the printer's sheet: margins of 18 and 12 points.
cp "$picture" "$folder/one.png"
cp "$picture" "$folder/two.png"
cd "$folder"
"$ctl" print --layout --printer evidence --paper A4 one.png >layout.json || fail "no layout"
python3 - <<'END' || fail "layout"
import json
table = json.load(open("layout.json"))
assert table["dpi"] == {"x": 600, "y": 600}, table
assert abs(table["offset"]["x"] - 18 / 72) < 0.001 and abs(table["offset"]["y"] - 12 / 72) < 0.001, table
END

# Two pages, to the default printer, read back.
"$ctl" print --paper Letter one.png two.png || fail "not printed"
until [ -f jobs/one.pdf ]; do
  kill -0 "$server" || fail "the scheduler has ended"
  read -rt 0.05 <> <(:) || true
done
pdfinfo jobs/one.pdf | grep -q '^Pages: *2$' || fail "not two pages"
pdfinfo jobs/one.pdf | grep -q '^Page size: *612 x 792 pts' || fail "not on Letter"
grep -q 'PageSize=Letter' jobs/one.options || fail "the job does not ask for Letter"
pdfimages -png jobs/one.pdf picture
for page in 000 001; do
  [ ! -f "picture-$page.png" ] && continue
  compare -metric AE "picture-$page.png" one.png null: 2>difference || fail "other pixels: $(cat difference)"
done
[ -f picture-000.png ] || fail "no picture"

# What becomes of jobs: one that waits and is cancelled, one whose printer fails, one that is printed.
[ "$("$probe" list)" = 'evidence*' ] || fail "other queues: $("$probe" list)"
expect() {
  until [ "$("$probe" state "$2" "$3")" != waiting ]; do
    kill -0 "$server" || fail "the scheduler has ended"
    read -rt 0.05 <> <(:) || true
  done
  [ "$("$probe" state "$2" "$3")" = "$1" ] || fail "job $3 is $("$probe" state "$2" "$3"), not $1"
}
cupsdisable evidence
job=$("$probe" send evidence jobs/one.pdf)
[ "$("$probe" state evidence "$job")" = waiting ] || fail "the job does not wait"
cancel "$job"
expect cancelled evidence "$job"
cupsenable evidence
job=$("$probe" send evidence jobs/one.pdf)
expect 'done' evidence "$job"
[ "$("$probe" state evidence 9999)" = 'done' ] || fail "an unknown job is not over"
lpadmin -p broken -v broken:nothing -P "$folder/evidence.ppd" -o printer-error-policy=abort-job -E 2>/dev/null
job=$("$probe" send broken jobs/one.pdf)
expect failed broken "$job"
lpadmin -x broken
if "$probe" send gone jobs/one.pdf 2>errors; then fail "sent to a queue that does not exist"; fi
[ -s errors ] || fail "no reason"

# A queue that has vanished, and a system without any.
if "$ctl" print --printer gone one.png 2>errors; then fail "printed to a queue that does not exist"; fi
grep -q '^gone: 12709: ' errors || fail "$(cat errors)"
lpadmin -x evidence
if "$ctl" print one.png 2>errors; then fail "printed without a printer"; fi
grep -q '12708: ' errors || fail "$(cat errors)"
