raise SystemExit("The lead has merged your branch and needs the processors now: stop here and report.")
