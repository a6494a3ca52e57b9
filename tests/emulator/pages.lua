-- Pages through the sample cartridge, and writes each page's name table and palettes as a line of
-- hexadecimal digits to the file that PAGES names; a last line says that all of them are there.

local out = io.open(os.getenv("PAGES"), "w")
emu.speedmode("maximum")

local function wait(frames)
  for _ = 1, frames do emu.frameadvance() end
end

local function press(button)
  for _ = 1, 2 do
    joypad.set(1, {[button] = true})
    emu.frameadvance()
  end
  joypad.set(1, {})
  wait(12) -- the slowest page takes a few frames
end

local function write_page()
  local digits = {}
  local function add(from, count)
    for address = from, from + count - 1 do
      digits[#digits + 1] = string.format("%02X", ppu.readbyte(address))
    end
  end
  add(0x2000, 960)
  add(0x3F00, 32)
  out:write(table.concat(digits), "\n")
end

-- Writes the pages of a view, which a button leads through, and comes back to the first.
local function write_pages(button, count)
  for _ = 1, count do
    write_page()
    press(button)
  end
end

wait(30)
write_page()
press("A")
write_pages("right", 28)
press("A")
for _ = 1, 28 do
  write_pages("down", 3)
  press("right")
end
press("A")
write_pages("right", 17)
press("A")
for _ = 1, 2 do
  write_pages("down", 2)
  press("right")
end
out:write("end\n")
out:close()
os.exit(0)
