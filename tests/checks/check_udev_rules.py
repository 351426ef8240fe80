#!/usr/bin/env python3
"""Reads the udev rules: who may use which device, and whether udev comes by in time."""
import fnmatch
import os
import re
import sys

PRODUCTS = [f"{number:04x}" for number in range(0x1500, 0x1507)]
STRANGERS = ["14ff", "1507", "1510"]
UACCESS_NUMBER = 70  # what is tagged later stays without effect


def keys(line):
    return dict(re.findall(r'(\w+(?:\{\w+\})?)(?:==|\+=|=)"([^"]*)"', line))


def product_pattern(rule):
    return rule.get("ATTR{idProduct}", rule.get("ATTRS{idProduct}", ""))


def complaints(name, lines):
    rules = [keys(line) for line in lines if line.strip() and not line.startswith("#")]
    if int(name.split("-")[0]) >= UACCESS_NUMBER:
        yield f"{name}: must be numbered below {UACCESS_NUMBER}"
    if not {"usb", "usbmisc"} <= {rule.get("SUBSYSTEM") for rule in rules}:
        yield f"{name}: a subsystem of the IO-Warrior is missing"
    for rule in rules:
        if rule.get("TAG") != "uaccess" or "MODE" in rule or "GROUP" in rule:
            yield f"{name}: a rule must give the device to the user at the machine: {rule}"
        if rule.get("ATTR{idVendor}", rule.get("ATTRS{idVendor}")) != "07c0":
            yield f"{name}: a rule names another vendor: {rule}"
        for product in PRODUCTS:
            if not fnmatch.fnmatchcase(product, product_pattern(rule)):
                yield f"{name}: {product} is left out by {rule}"
        for product in STRANGERS:
            if fnmatch.fnmatchcase(product, product_pattern(rule)):
                yield f"{name}: {product} is no IO-Warrior: {rule}"


def main(path):
    with open(path, encoding="utf-8") as file:
        found = list(complaints(os.path.basename(path), file.read().splitlines()))
    print("\n".join(found) or "fine")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
